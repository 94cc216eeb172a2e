// What the page asks of the worker: one job after the other, each for itself. The worker is ended and made anew where a
// job takes too long or too much memory, or where someone does not want to wait for a picture.
import type { PictureFormat, RepairOptions, RepairReport, Report, ReportOptions } from '../module/types.ts';

/** The bytes of a file, which the worker reads, and what it is called. */
export interface Source {
  readonly name: string;
  readonly bytes: Blob;
}

export interface Picture {
  /** The page that `igs view -o X.html` writes: a report to keep. */
  readonly page: Uint8Array<ArrayBuffer>;
  /** Its packed model, for the viewer's unpack(). */
  readonly model: string;
}

/** Jobs are rejected with this where the worker was ended: `message` says why, for people. */
export class JobEnded extends Error {
  override readonly name = 'JobEnded';
}

export interface Workshop {
  check(source: Source, options: ReportOptions): Promise<Report>;
  repair(source: Source, options: RepairOptions): Promise<RepairReport>;
  /** Findings, or, with `old`, what has changed since. Waits for all other jobs, and starts again after one that came later. */
  picture(source: Source, options: ReportOptions, old?: Source): Promise<Picture>;
  /** The same report as a file: JSON, SARIF, GLB or SVG. */
  report(source: Source, format: 'json' | 'sarif', options: ReportOptions): Promise<Uint8Array<ArrayBuffer>>;
  view(source: Source, format: Exclude<PictureFormat, 'html'>): Promise<Uint8Array<ArrayBuffer>>;
  /** What `igs explain` prints. */
  explain(...words: string[]): Promise<string>;
  /** Ends all jobs about the file: the one that is being done, and those that wait. */
  stop(source: Source): void;
}

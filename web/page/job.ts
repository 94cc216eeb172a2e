// What the page and the worker say to each other.
import type { PictureFormat, RepairOptions, ReportOptions } from '../module/types.ts';
import type { Source } from './workshop.ts';

/** The first message to a worker: the compiled program, and the page around a picture. */
export interface Start {
  readonly code: WebAssembly.Module;
  readonly template: Uint8Array;
}

/** All others. Each is answered, before the next comes. */
export type Job =
  | { readonly call: 'check'; readonly source: Source; readonly options: ReportOptions }
  | { readonly call: 'repair'; readonly source: Source; readonly options: RepairOptions }
  | { readonly call: 'picture'; readonly source: Source; readonly options: ReportOptions; readonly old: Source | null }
  | {
      readonly call: 'report';
      readonly source: Source;
      readonly options: ReportOptions;
      readonly format: 'json' | 'sarif';
    }
  | { readonly call: 'view'; readonly source: Source; readonly format: Exclude<PictureFormat, 'html'> }
  | { readonly call: 'explain'; readonly words: readonly string[] }
  | { readonly call: 'warmUp'; readonly sources: readonly Source[] };

/** `failure` is for people. */
export type Answer = { readonly result: unknown } | { readonly failure: string };

// What the page knows: the files that were dropped, what was found in each and what came of its repair. The panels know
// each other through it alone.
import type { Finding, RepairOptions, RepairReport, Report } from '../module/types.ts';
import { repairedName } from './save.ts';
import type { Picture, Source, Workshop } from './workshop.ts';

export type Job = 'check' | 'repair' | 'picture' | 'comparison';

/** A dropped file. Never changed: what happens to it makes a new one with the same id. */
export interface Part {
  readonly id: number;
  readonly source: Source;
  /** The jobs that are being done or wait, and what that is for people: '' where nothing is done. */
  readonly jobs: readonly Job[];
  readonly doing: string;
  /** Why jobs came to nothing the last time. */
  readonly failures: Readonly<Partial<Record<Job, string>>>;
  /** Why nothing can be said about the file; '' where all is well. */
  readonly failure: string;
  readonly report: Report | null;
  readonly picture: Picture | null;
  readonly repair: RepairReport | null;
  /** What changed between the file and the repaired one. */
  readonly comparison: Picture | null;
}

export interface SessionState {
  readonly parts: readonly Part[];
  /** The id of the part that is shown; -1 without one. */
  readonly chosen: number;
  /** One of its findings that was chosen, which its picture shows. */
  readonly finding: Finding | null;
  readonly dark: boolean;
}

export type SessionListener = (state: SessionState, before: SessionState) => void;

const doings: Readonly<Record<Job, string>> = {
  check: 'Checking',
  repair: 'Repairing',
  picture: 'Drawing',
  comparison: 'Comparing',
};

/** More findings than these are counted, not listed. */
export const mostListed = 5000;

export class Session {
  #state: SessionState;
  #lastId = 0;
  readonly #listeners: SessionListener[] = [];

  constructor(
    readonly workshop: Workshop,
    dark = false,
  ) {
    this.#state = { parts: [], chosen: -1, finding: null, dark };
  }

  get state(): SessionState {
    return this.#state;
  }

  get part(): Part | null {
    return this.#find(this.#state.chosen);
  }

  listen(listener: SessionListener): void {
    this.#listeners.push(listener);
  }

  /** Takes files in, and checks each; the first of them is shown. */
  add(sources: readonly Source[]): void {
    const parts = sources.map((source): Part => {
      this.#lastId += 1;
      const nothing = { report: null, picture: null, repair: null, comparison: null };
      // Of its own, as an example may be added twice.
      return { id: this.#lastId, source: { ...source }, jobs: [], doing: '', failures: {}, failure: '', ...nothing };
    });
    const first = parts[0];
    if (!first) return;
    this.#set({ parts: [...this.#state.parts, ...parts], chosen: first.id, finding: null });
    for (const { id } of parts) void this.#check(id);
  }

  choose(id: number): void {
    if (this.#find(id) && id !== this.#state.chosen) this.#set({ chosen: id, finding: null });
  }

  chooseFinding(finding: Finding | null): void {
    this.#set({ finding });
  }

  setDark(dark: boolean): void {
    this.#set({ dark });
  }

  clear(): void {
    const { parts } = this.#state;
    this.#set({ parts: [], chosen: -1, finding: null });
    for (const { source } of parts) this.workshop.stop(source);
  }

  remove(id: number): void {
    const at = this.#state.parts.findIndex((part) => part.id === id);
    const removed = this.#state.parts[at];
    const parts = this.#state.parts.filter((part) => part.id !== id);
    const next = parts[Math.min(at, parts.length - 1)];
    if (id !== this.#state.chosen) this.#set({ parts });
    else this.#set({ parts, chosen: next?.id ?? -1, finding: null });
    if (removed) this.workshop.stop(removed.source);
  }

  /** Repairs the file anew: what an earlier repair made is gone. */
  async repair(id: number, options: RepairOptions): Promise<void> {
    const part = this.#find(id);
    if (!part || part.jobs.includes('repair')) return;
    this.#change(id, { repair: null, comparison: null });
    await this.#work(id, 'repair', async () => {
      const asked = { ...options, summary: true, name: part.source.name, maxErrors: mostListed };
      return { repair: await this.workshop.repair(part.source, asked) };
    });
  }

  /** Draws the file, once. */
  async draw(id: number): Promise<void> {
    const part = this.#find(id);
    if (!part || part.picture || part.jobs.includes('picture')) return;
    await this.#work(id, 'picture', async () => ({ picture: await this.workshop.picture(part.source, {}) }));
  }

  /** Draws what the repair changed, once. */
  async compare(id: number): Promise<void> {
    const part = this.#find(id);
    const repaired = part && repairedSource(part);
    if (!part || !repaired || part.comparison || part.jobs.includes('comparison')) return;
    await this.#work(id, 'comparison', async () => {
      const comparison = await this.workshop.picture(repaired, {}, part.source);
      // The file may have been repaired in another way meanwhile.
      return this.#find(id)?.repair === part.repair ? { comparison } : {};
    });
  }

  #find(id: number): Part | null {
    return this.#state.parts.find((part) => part.id === id) ?? null;
  }

  async #check(id: number): Promise<void> {
    const part = this.#find(id);
    if (!part) return;
    await this.#work(id, 'check', async () => {
      const report = await this.workshop.check(part.source, { name: part.source.name, maxErrors: mostListed });
      return { report };
    });
  }

  async #work(id: number, job: Job, work: () => Promise<Partial<Part>>): Promise<void> {
    const jobs = (): readonly Job[] => this.#find(id)?.jobs.filter((each) => each !== job) ?? [];
    const failing = (failure: string) => ({ failures: { ...this.#find(id)?.failures, [job]: failure } });
    this.#change(id, { jobs: [...jobs(), job], ...failing('') });
    try {
      const done = await work();
      this.#change(id, { ...done, jobs: jobs() });
    } catch (error) {
      this.#change(id, { jobs: jobs(), ...failing(error instanceof Error ? error.message : String(error)) });
    }
  }

  #change(id: number, change: Partial<Part>): void {
    const parts = this.#state.parts.map((part) => {
      if (part.id !== id) return part;
      const changed = { ...part, ...change };
      const last = changed.jobs.at(-1);
      return { ...changed, doing: last ? doings[last] : '', failure: changed.failures.check ?? '' };
    });
    this.#set({ parts });
  }

  #set(change: Partial<SessionState>): void {
    const before = this.#state;
    this.#state = { ...before, ...change };
    for (const listener of this.#listeners) listener(this.#state, before);
  }
}

/** The repaired file; null where there is none. */
export function repairedSource({ source, repair }: Part): Source | null {
  return repair?.bytes ? { name: repairedName(source.name), bytes: new Blob([repair.bytes]) } : null;
}

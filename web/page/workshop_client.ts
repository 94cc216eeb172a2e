// The workshop: one worker, which does one job after the other, and is ended where a job takes too long.
import type { RepairOptions, RepairReport, Report, ReportOptions } from '../module/types.ts';
import type { Answer, Job } from './job.ts';
import { JobEnded, type Picture, type Source, type Workshop } from './workshop.ts';

export interface Limits {
  /** Larger files are refused. */
  readonly bytes: number;
  /** For a job: to begin with, and for every megabyte of its files. */
  readonly seconds: number;
  readonly secondsPerMegabyte: number;
}

const usualLimits: Limits = { bytes: 512 * 1024 * 1024, seconds: 60, secondsPerMegabyte: 3 };

/** Memory that a file of more bytes took goes back at once, with its worker. */
const mostKept = 32 * 1024 * 1024;

/** Which jobs go first: a picture waits for whoever wants an answer, and what is done ahead for all others. */
const ranks = ['answer', 'picture', 'ahead'] as const;
type Rank = (typeof ranks)[number];

interface Task {
  readonly job: Job;
  readonly rank: Rank;
  /** In bytes. */
  readonly size: number;
  readonly resolve: (result: unknown) => void;
  readonly reject: (reason: Error) => void;
}

function sourcesOf(job: Job): readonly Source[] {
  if (job.call === 'explain') return [];
  if (job.call === 'warmUp') return job.sources;
  return job.call === 'picture' && job.old ? [job.source, job.old] : [job.source];
}

export class WorkshopClient implements Workshop {
  readonly #makeWorker: () => Worker;
  readonly #limits: Limits;
  readonly #waiting: Readonly<Record<Rank, Task[]>> = { answer: [], picture: [], ahead: [] };
  /** Null until it is needed. */
  #worker: Worker | null = null;
  /** Made while a picture is drawn, which it takes the place of where something else comes. */
  #spare: Worker | null = null;
  #current: Task | null = null;
  #timer = 0;

  /** `makeWorker` makes one that has been given its Start. */
  constructor(makeWorker: () => Worker, limits: Limits = usualLimits) {
    this.#makeWorker = makeWorker;
    this.#limits = limits;
  }

  check(source: Source, options: ReportOptions): Promise<Report> {
    return this.#do({ call: 'check', source, options });
  }

  repair(source: Source, options: RepairOptions): Promise<RepairReport> {
    return this.#do({ call: 'repair', source, options });
  }

  picture(source: Source, options: ReportOptions, old?: Source): Promise<Picture> {
    return this.#do({ call: 'picture', source, options, old: old ?? null }, 'picture');
  }

  report(source: Source, format: 'json' | 'sarif', options: ReportOptions): Promise<Uint8Array<ArrayBuffer>> {
    return this.#do({ call: 'report', source, options, format });
  }

  view(source: Source, format: 'glb' | 'svg'): Promise<Uint8Array<ArrayBuffer>> {
    return this.#do({ call: 'view', source, format });
  }

  explain(...words: string[]): Promise<string> {
    return this.#do({ call: 'explain', words });
  }

  /**
   * Checks files while there is nothing else to do, only for the browser to compile the program's code well: with code
   * that has hardly run a first large file would take several times as long.
   */
  async warmUp(sources: readonly Source[]): Promise<void> {
    const job: Job = { call: 'warmUp', sources: Array.from({ length: 5 }, () => sources).flat() };
    for (let run = 0; run < 40; ++run) await this.#do(job, 'ahead');
  }

  stop(source: Source): void {
    const reason = 'Stopped.';
    for (const rank of ranks) {
      const tasks = this.#waiting[rank].splice(0);
      for (const task of tasks) {
        if (sourcesOf(task.job).includes(source)) task.reject(new JobEnded(reason));
        else this.#waiting[rank].push(task);
      }
    }
    if (this.#current && sourcesOf(this.#current.job).includes(source)) this.#end(reason);
  }

  #do<Result>(job: Job, rank: Rank = 'answer'): Promise<Result> {
    const sources = sourcesOf(job);
    const { bytes: most } = this.#limits;
    if (sources.some(({ bytes }) => bytes.size > most)) {
      const size = `${Math.floor(most / (1024 * 1024))} MiB`;
      return Promise.reject(new JobEnded(`The file is larger than ${size}. On a command line igs takes it.`));
    }
    const size = sources.reduce((sum, { bytes }) => sum + bytes.size, 0);
    return new Promise((resolve, reject) => {
      // What the worker answers is of the job's type.
      this.#waiting[rank].push({ job, rank, size, resolve: (result) => resolve(result as Result), reject });
      if (rank === 'answer') this.#putOffPicture();
      this.#next();
    });
  }

  #putOffPicture(): void {
    const task = this.#current;
    if (task?.rank !== 'picture') return;
    this.#dropWorker();
    this.#waiting.picture.unshift(task);
  }

  #next(): void {
    if (this.#current) return;
    const rank = ranks.find((each) => this.#waiting[each].length > 0);
    const task = rank && this.#waiting[rank].shift();
    if (!task) return;
    this.#current = task;
    const { seconds, secondsPerMegabyte } = this.#limits;
    const most = seconds + (secondsPerMegabyte * task.size) / 1e6;
    this.#timer = setTimeout(() => {
      this.#end(
        `This took longer than ${Math.round(most)} seconds and was ended. On a command line igs takes its time.`,
      );
    }, most * 1000);
    this.#worker ??= this.#takeSpare();
    this.#worker.postMessage(task.job);
    if (task.rank === 'picture') this.#spare ??= this.#listenTo(this.#makeWorker());
  }

  #takeSpare(): Worker {
    const worker = this.#spare ?? this.#listenTo(this.#makeWorker());
    this.#spare = null;
    return worker;
  }

  #end(reason: string): void {
    const task = this.#current;
    if (!task) return;
    this.#dropWorker();
    task.reject(new JobEnded(reason));
    this.#next();
  }

  /** Takes the current task off the worker. */
  #take(): Task | null {
    clearTimeout(this.#timer);
    const task = this.#current;
    this.#current = null;
    return task;
  }

  #dropWorker(): void {
    this.#take();
    this.#worker?.terminate();
    this.#worker = null;
  }

  #listenTo(worker: Worker): Worker {
    const crash = (event: Event): void => {
      event.preventDefault();
      if (worker !== this.#worker) return;
      if (this.#current) this.#end('The file was too much for this browser.');
      else this.#dropWorker();
    };
    worker.addEventListener('error', crash);
    worker.addEventListener('messageerror', crash);
    worker.addEventListener('message', ({ data }: MessageEvent<Answer>) => {
      if (worker !== this.#worker) return;
      if ('failure' in data) return this.#end(data.failure);
      const task = this.#take();
      if (task && task.size > mostKept) this.#dropWorker();
      task?.resolve(data.result);
      this.#next();
    });
    return worker;
  }
}

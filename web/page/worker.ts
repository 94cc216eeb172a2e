// The worker: reads a file, runs the program on it, and sends back what came of it.
import { check, repair, view, wordsOf } from '../module/calls.ts';
import { unpacked } from '../module/gzip.ts';
import { modelOf } from '../module/html.ts';
import { Program, safeName } from '../module/program.ts';
import type { Failure } from '../module/types.ts';
import type { Answer, Job, Start } from './job.ts';
import type { Picture, Source } from './workshop.ts';

type Bytes = Uint8Array<ArrayBuffer>;

/** A result, and what of it is handed over, not copied. */
interface Done {
  readonly result: unknown;
  readonly handed: readonly (Bytes | null)[];
}

const read = async ({ bytes }: Source): Promise<Bytes> => new Uint8Array(await bytes.arrayBuffer());

/** Throws what the program says of a file that it cannot read. */
function readable<Result extends object>(result: Result | Failure): Result {
  if ('error' in result) throw new Error(String(result.error));
  return result;
}

/** A report that becomes objects, here and in the page, is no larger: there a few bytes take many times their room. */
const mostShown = 64 * 1024 * 1024;

class Bench {
  readonly #program: Program;
  /** For what is only stored. */
  readonly #printer: Program;
  readonly #template: Uint8Array;

  constructor({ code, template }: Start) {
    this.#program = new Program(code, {}, mostShown);
    this.#printer = new Program(code);
    this.#template = template;
  }

  async do(job: Job): Promise<Done> {
    switch (job.call) {
      case 'check':
        return { result: readable(await check(this.#program, await read(job.source), job.options)), handed: [] };
      case 'repair': {
        const result = readable(await repair(this.#program, await read(job.source), job.options));
        return { result, handed: [result.bytes] };
      }
      case 'picture': {
        const result = await this.#picture(job);
        return { result, handed: [result.page] };
      }
      case 'report': {
        const result = await this.#report(job);
        return { result, handed: [result] };
      }
      case 'view': {
        const { source, format } = job;
        const result = await view(this.#program, await read(source), { format, name: source.name });
        return { result, handed: [result] };
      }
      case 'explain': {
        const { output } = await this.#program.run(['explain', ...job.words]);
        return { result: new TextDecoder().decode(output), handed: [] };
      }
      case 'warmUp':
        return { result: await this.#warmUp(job.sources), handed: [] };
    }
  }

  async #report({ source, format, options }: Extract<Job, { call: 'report' }>): Promise<Bytes> {
    const name = safeName(source.name);
    const words = ['check', `--format=${format}`, ...wordsOf({ ...options }), '--', name];
    const files = new Map([[name, await unpacked(await read(source))]]);
    const { output, complaints } = await this.#printer.run(words, { files });
    if (output.length === 0) throw new Error(complaints.trim());
    return output;
  }

  /** Many files in one run, as making an instance takes longer than a small file. */
  async #warmUp(sources: readonly Source[]): Promise<void> {
    const files = await Promise.all(
      sources.map(async (source, i) => [`${i}-${safeName(source.name)}`, await read(source)] as const),
    );
    await this.#program.run(['check', '--format=json', ...files.map(([name]) => name)], { files: new Map(files) });
  }

  async #picture({ source, options, old }: Extract<Job, { call: 'picture' }>): Promise<Picture> {
    const others = {
      template: this.#template.slice(),
      ...(old && { old: { name: old.name, bytes: await read(old) } }),
    };
    const asked = { ...options, name: source.name, format: 'html' as const };
    const page = await view(this.#program, await read(source), asked, others);
    return { page, model: modelOf(page) };
  }
}

let bench: Bench | null = null;

function answer(message: Answer, handed: Done['handed'] = []): void {
  const buffers = handed.flatMap((bytes) => (bytes ? [bytes.buffer] : []));
  postMessage(message, { transfer: buffers });
}

addEventListener('message', ({ data }: MessageEvent<Start | Job>) => {
  if ('code' in data) bench = new Bench(data);
  else if (bench)
    bench.do(data).then(
      ({ result, handed }) => answer({ result }, handed),
      (error: unknown) => answer({ failure: error instanceof Error ? error.message : String(error) }),
    );
});

// Runs the program, compiled to WebAssembly: every run is an instance of its own, with files in memory alone, so that
// nothing of a file is left behind and memory goes back.
import makeIgs, { type FileSystem, type Instance } from 'igs-program';

/** The bytes of files by their names, which may lead through folders; a name that ends with / is a folder. */
export type Files = ReadonlyMap<string, Uint8Array>;

export interface Run {
  /** Of the command line: 0, 1 or 2. */
  readonly status: number;
  /** What stands on standard output and standard error. */
  readonly output: Uint8Array<ArrayBuffer>;
  readonly complaints: string;
  /** What there is in a folder now, which has to be one. */
  namesIn(folder: string): string[];
  /** The bytes of a file as the run has left it; null where there is none of this name. */
  file(name: string): Uint8Array<ArrayBuffer> | null;
}

export interface RunOptions {
  readonly files?: Files;
  /** Standard input; empty without it. */
  readonly input?: Uint8Array;
  /** The folder in memory that the program works in: an absolute path. */
  readonly folder?: string;
  /** The page around a picture, where one of format html is asked for. */
  readonly template?: Uint8Array;
}

/** More than this is not printed, usually: whoever prints more has been given a hostile file. */
const usualMostPrinted = 256 * 1024 * 1024;

/** Ran out of memory, or printed too much. The program itself is as good as new. */
export class RunFailed extends Error {
  override readonly name = 'RunFailed';
}

class Printed {
  readonly #parts: Uint8Array[] = [];
  readonly #most: number;
  #size = 0;

  constructor(most: number) {
    this.#most = most;
  }

  /** Makes it the open file of this number. */
  connect(files: FileSystem, descriptor: number): void {
    const device = files.makedev(64, descriptor);
    files.registerDevice(device, {
      open: () => undefined,
      close: () => undefined,
      read: () => 0,
      write: (_stream, bytes, offset, length) => this.#take(new Uint8Array(bytes.buffer, offset, length).slice()),
    });
    files.mkdev(`/printed-${descriptor}`, device);
    files.close(files.getStream(descriptor));
    files.open(`/printed-${descriptor}`, 'w');
  }

  bytes(): Uint8Array<ArrayBuffer> {
    const all = new Uint8Array(this.#size);
    let at = 0;
    for (const part of this.#parts) {
      all.set(part, at);
      at += part.length;
    }
    return all;
  }

  #take(part: Uint8Array): number {
    this.#size += part.length;
    if (this.#size > this.#most) throw new RunFailed(`The result is larger than ${this.#most / (1024 * 1024)} MiB.`);
    this.#parts.push(part);
    return part.length;
  }
}

/** A name that leads nowhere but into the folder of files: the last part of a path, without what a terminal may take amiss. */
export function safeName(name: string): string {
  const wellFormed = new TextDecoder().decode(new TextEncoder().encode(name));
  const last = wellFormed.split(/[/\\]/).pop() ?? '';
  // eslint-disable-next-line no-control-regex
  const plain = [...last.replace(/[\0-\x1f\x7f]/g, '_')].slice(-200).join('');
  return /^[.-]*$/.test(plain) ? `file${plain}.igs` : plain;
}

export class Program {
  readonly #code: WebAssembly.Module;
  readonly #environment: Readonly<Record<string, string>>;
  readonly #mostPrinted: number;

  /**
   * Of the compiled igs.wasm, the environment variables that it sees, and how many bytes a run may print. Instances share
   * the code, and what the engine learns about it.
   */
  constructor(
    code: WebAssembly.Module,
    environment: Readonly<Record<string, string>> = {},
    mostPrinted = usualMostPrinted,
  ) {
    this.#code = code;
    this.#environment = environment;
    this.#mostPrinted = mostPrinted;
  }

  /** Runs the program with these words of a command line. Rejects with RunFailed where nothing comes of it. */
  async run(words: readonly string[], options: RunOptions = {}): Promise<Run> {
    const { files = [], input = new Uint8Array(), folder = '/files', template } = options;
    const [output, complaints] = [new Printed(this.#mostPrinted), new Printed(this.#mostPrinted)];
    const { FS, callMain } = await this.#instance();
    FS.ignorePermissions = true;
    FS.writeFile('/dev/input', input, { canOwn: true });
    FS.close(FS.getStream(0));
    FS.open('/dev/input', 'r');
    output.connect(FS, 1);
    complaints.connect(FS, 2);
    if (template) {
      FS.mkdir('/viewer');
      FS.writeFile('/viewer/template', template, { canOwn: true });
    }
    makeFolders(FS, `${folder}/`);
    FS.chdir(folder);
    for (const [name, bytes] of files) {
      makeFolders(FS, name);
      if (!name.endsWith('/')) FS.writeFile(name, bytes, { canOwn: true });
    }
    const status = call(() => callMain([...words]));
    const namesIn = (place: string): string[] => FS.readdir(place).filter((name) => name !== '.' && name !== '..');
    return {
      status,
      output: output.bytes(),
      complaints: new TextDecoder().decode(complaints.bytes()),
      namesIn,
      file: (name) => {
        const start = name.lastIndexOf('/') + 1;
        return namesIn(name.slice(0, start) || '.').includes(name.slice(start)) ? FS.readFile(name) : null;
      },
    };
  }

  #instance(): Promise<Instance> {
    const ignore = (): void => undefined;
    return new Promise((resolve, reject) => {
      makeIgs({
        instantiateWasm: (imports, receive) => {
          WebAssembly.instantiate(this.#code, imports).then(receive).catch(reject);
          return {};
        },
        quit: (_status, reason) => {
          throw reason;
        },
        preRun: [({ ENV }) => Object.assign(ENV, this.#environment)],
        onAbort: ignore,
        print: ignore,
        printErr: ignore,
      }).then(resolve, reject);
    });
  }
}

/** Those that the name leads through. */
function makeFolders(files: FileSystem, name: string): void {
  for (let end = name.indexOf('/', 1); end > 0; end = name.indexOf('/', end + 1)) {
    const folder = name.slice(0, end);
    if (!files.analyzePath(folder).exists) files.mkdir(folder);
  }
}

function call(main: () => number): number {
  try {
    return main();
  } catch (error) {
    const { status } = error as { status?: unknown };
    if (typeof status === 'number') return status;
    if (error instanceof RunFailed) throw error;
    throw new RunFailed('The file is more than this module can take.', { cause: error });
  }
}

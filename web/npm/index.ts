// What the package exports: the module's calls, with a program that is read when it is first needed.
import { environment, readFile } from 'igs-files';
import * as calls from '../module/calls.ts';
import { Program } from '../module/program.ts';
import type {
  Failure,
  Info,
  InfoOptions,
  PictureOptions,
  RepairOptions,
  RepairReport,
  Report,
  ReportOptions,
} from '../module/types.ts';

export type * from '../module/types.ts';

/** The bytes of an IGES file, which may be packed by gzip. */
export type Bytes = Uint8Array | ArrayBuffer | Blob;

/** What `load` gives; it is asked again only after it has failed. */
function once<Value>(load: () => Promise<Value>): () => Promise<Value> {
  let value: Promise<Value> | null = null;
  return () => {
    value ??= load().catch((error: unknown) => {
      value = null;
      throw error;
    });
    return value;
  };
}

const program = once(async () => new Program(await WebAssembly.compile(await readFile('igs.wasm')), environment));
const template = once(() => readFile('page_template'));

async function contentOf(bytes: Bytes): Promise<Uint8Array> {
  if (ArrayBuffer.isView(bytes)) return new Uint8Array(bytes.buffer, bytes.byteOffset, bytes.byteLength);
  if (bytes instanceof ArrayBuffer) return new Uint8Array(bytes);
  if (bytes instanceof Blob) return new Uint8Array(await bytes.arrayBuffer());
  throw new TypeError('The bytes of a file are a Uint8Array, an ArrayBuffer or a Blob.');
}

/**
 * Finds the faults of a file, as `igs check` does. Rejects with a TypeError where the options are wrong, with a RunFailed
 * where the file takes more memory than there is; so do the others.
 */
export async function check(bytes: Bytes, options: ReportOptions = {}): Promise<Report | Failure> {
  return calls.check(await program(), await contentOf(bytes), options);
}

/** Repairs what can be repaired without loss, as `igs repair` does. */
export async function repair(bytes: Bytes, options: RepairOptions = {}): Promise<RepairReport | Failure> {
  return calls.repair(await program(), await contentOf(bytes), options);
}

/** Says what is in a file, as `igs info` does. */
export async function info(bytes: Bytes, options: InfoOptions = {}): Promise<Info | Failure> {
  return calls.info(await program(), await contentOf(bytes), options);
}

/** Draws a file and its faults, as `igs view` does. Rejects where there is nothing to draw. */
export async function view(bytes: Bytes, options: PictureOptions): Promise<Uint8Array<ArrayBuffer>> {
  const content = await contentOf(bytes);
  const page = options.format === 'html' ? { template: await template() } : {};
  return calls.view(await program(), content, options, page);
}

// What can be asked about a file. Options are those of the command line: keepGeometry is --keep-geometry, a list is an
// option given several times.
import type {
  Failure,
  Info,
  InfoOptions,
  PictureOptions,
  RepairOptions,
  RepairReport,
  Report,
  ReportOptions,
} from './types.ts';
import { type Files, type Program, type Run, type RunOptions, safeName } from './program.ts';
import { DamagedGzip, unpacked } from './gzip.ts';
import { compactPage } from './html.ts';

type Options = Readonly<Record<string, unknown>>;

/** The options as words of a command line. `name` and what is undefined or false are left out. */
export function wordsOf({ name: _name, ...options }: Options): string[] {
  return Object.entries(options).flatMap(([key, value]) => {
    const option = `--${key.replace(/[A-Z]/g, (letter) => `-${letter.toLowerCase()}`)}`;
    const values = Array.isArray(value) ? (value as unknown[]) : [value];
    return values.flatMap((each) => {
      if (each === undefined || each === null || each === false) return [];
      return each === true ? [option] : [`${option}=${String(each)}`];
    });
  });
}

/** What a file is compared with. */
export interface OldFile {
  readonly name: string;
  readonly bytes: Uint8Array;
}

/** Runs a command on the bytes of one file. */
async function runOn(
  program: Program,
  command: readonly string[],
  bytes: Uint8Array,
  name: string,
  { old, ...others }: Omit<RunOptions, 'files'> & { readonly old?: OldFile } = {},
): Promise<Run> {
  let files: Files;
  try {
    const before = old ? [[oldName(old, name), await unpacked(old.bytes)] as const] : [];
    files = new Map([[name, await unpacked(bytes)], ...before]);
  } catch (error) {
    if (!(error instanceof DamagedGzip)) throw error;
    const failure: Failure = { file: name, error: error.message };
    const output = new TextEncoder().encode(JSON.stringify(failure));
    return { status: 2, output, complaints: `igs: ${name}: ${error.message}`, namesIn: () => [], file: () => null };
  }
  return program.run([...command, '--', name], { ...others, files });
}

/** Not the name of the new file. */
function oldName(old: OldFile, name: string): string {
  const own = safeName(old.name);
  return own === name ? `before-${own}` : own;
}

/** Beside the folder of the files, none of which it can be taken for. */
const picturePath = '/picture';

const nameOf = (options: Options): string =>
  safeName(typeof options['name'] === 'string' ? options['name'] : 'input.igs');

/** What the program complained of; a TypeError where the options are wrong. */
function complaintOf({ complaints }: Run): Error {
  const [complaint, hint] = complaints.split(/\nRun igs .*--help for more information\.\s*$/);
  return hint === undefined ? new Error(complaints.trim()) : new TypeError(complaint);
}

/** The JSON that a run has printed; throws what the program complained of where it is none. */
function jsonOf<Result>(run: Run): Result {
  if (run.output.length === 0) throw complaintOf(run);
  const text = new TextDecoder().decode(run.output);
  if (!text.startsWith('{')) throw new TypeError('The options ask for something else than a report.');
  return JSON.parse(text) as Result;
}

/** What is wrong with the file. */
export async function check(
  program: Program,
  bytes: Uint8Array,
  options: ReportOptions = {},
): Promise<Report | Failure> {
  const words = ['check', '--format=json', ...wordsOf({ ...options })];
  return jsonOf(await runOn(program, words, bytes, nameOf({ ...options })));
}

/** The file repaired, and what is left. */
export async function repair(
  program: Program,
  bytes: Uint8Array,
  options: RepairOptions = {},
): Promise<RepairReport | Failure> {
  const name = nameOf({ ...options });
  const words = ['repair', '--format=json', `--output=${name}`, ...wordsOf({ ...options })];
  const run = await runOn(program, words, bytes, name);
  const report = jsonOf<Omit<RepairReport, 'bytes'> | Failure>(run);
  return 'error' in report ? report : { ...report, bytes: report.written === null ? null : run.file(name) };
}

/** What the program measures and counts of the file. */
export async function info(program: Program, bytes: Uint8Array, options: InfoOptions = {}): Promise<Info | Failure> {
  const words = ['info', '--format=json', ...wordsOf({ ...options })];
  return jsonOf(await runOn(program, words, bytes, nameOf({ ...options })));
}

/**
 * A picture of the file and its faults; of what has changed, with the `old` file. `template`: the page around it, which
 * format html needs. Rejects where there is nothing to draw.
 */
export async function view(
  program: Program,
  bytes: Uint8Array,
  options: PictureOptions,
  { old, template }: { readonly old?: OldFile; readonly template?: Uint8Array } = {},
): Promise<Uint8Array<ArrayBuffer>> {
  const name = nameOf({ ...options });
  const compared = old ? [`--compare=${oldName(old, name)}`] : [];
  const words = ['view', `--output=${picturePath}`, ...compared, ...wordsOf({ ...options })];
  const run = await runOn(program, words, bytes, name, { ...(old && { old }), ...(template && { template }) });
  const picture = run.file(picturePath);
  if (!picture) throw complaintOf(run);
  return options.format === 'html' ? compactPage(picture) : picture;
}

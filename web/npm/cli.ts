// The command igs-check: `igs check` over files, which are read into memory.
import { readdirSync, readFileSync, statSync } from 'node:fs';
import { buffer } from 'node:stream/consumers';
import { environment, readFile } from 'igs-files';
import { DamagedGzip, unpacked } from '../module/gzip.ts';
import { Program } from '../module/program.ts';

/** What there is of this name, if anything. */
function kindOf(name: string): 'file' | 'folder' | null {
  const found = name.includes('\0') ? undefined : statSync(name, { throwIfNoEntry: false });
  if (!found) return null;
  return found.isDirectory() ? 'folder' : 'file';
}

/** The names in a list, and whatever else it may be taken for. */
function namesIn(list: Uint8Array): string[] {
  return new TextDecoder().decode(list).split(/\0|\r?\n/);
}

/** What packed bytes hold; where they are damaged the program is left to refuse them, too. */
async function contentOf(name: string, bytes: Uint8Array): Promise<Uint8Array> {
  return unpacked(bytes).catch((error: unknown) => {
    if (!(error instanceof DamagedGzip)) throw error;
    console.error(`igs: ${name}: ${error.message}`);
    return bytes;
  });
}

/** All that the words of a command line may name, by those names; a folder's files, too, where folders are searched. */
async function filesNamedBy(words: readonly string[], input: Uint8Array): Promise<Map<string, Uint8Array>> {
  const values = words.map((word) => word.replace(/^--[a-z-]+=/, ''));
  const lists = values.filter((_, i) => /^--files-from(=|$)/.test(words[i] ?? '') || words[i - 1] === '--files-from');
  const listed = lists.flatMap((list) => {
    if (list === '-') return namesIn(input);
    return kindOf(list) === 'file' ? namesIn(readFileSync(list)) : [];
  });
  const isSearched = words.some((word) => word === '--recursive' || /^-[a-z]*r/.test(word));
  const configurations = process
    .cwd()
    .split(/[/\\]/)
    .map((_, depth) => `${'../'.repeat(depth)}igs.toml`);
  const files = new Map<string, Uint8Array>();
  for (const name of new Set([...values, ...listed, ...configurations])) {
    const kind = kindOf(name);
    if (kind === 'file') files.set(name, await contentOf(name, readFileSync(name)));
    if (kind !== 'folder') continue;
    const folder = name.replace(/\/*$/, '/');
    files.set(folder, new Uint8Array());
    for (const inside of isSearched ? readdirSync(name, { recursive: true, encoding: 'utf8' }) : []) {
      const found = folder + inside.replaceAll('\\', '/');
      const isWanted = /\.ige?s(\.gz)?$/i.test(found) && kindOf(found) === 'file';
      if (isWanted) files.set(found, await contentOf(found, readFileSync(found)));
    }
  }
  return files;
}

function hasColours(words: readonly string[]): boolean {
  const { NO_COLOR, TERM } = process.env;
  return process.stdout.isTTY && !NO_COLOR && TERM !== 'dumb' && !words.some((word) => word.startsWith('--color'));
}

async function run(words: readonly string[]): Promise<number> {
  const program = new Program(await WebAssembly.compile(await readFile('igs.wasm')), environment);
  const isVersion = words.length === 1 && words[0] === '--version';
  const asked = isVersion ? words : ['check', ...(hasColours(words) ? ['--color=always'] : []), ...words];
  const takesInput = words.some((word) => word === '-' || word === '--files-from=-');
  const given = takesInput ? new Uint8Array(await buffer(process.stdin)) : new Uint8Array();
  const input = await contentOf('-', given);
  const files = await filesNamedBy(words, input);
  const folder = process.cwd().startsWith('/') ? { folder: process.cwd() } : {};
  const { status, output, complaints } = await program.run(asked, { files, input, ...folder });
  process.stderr.write(complaints.replace(/^Run igs check --help/m, 'Run igs-check --help'));
  const isOwn = isVersion || new TextDecoder().decode(output.subarray(0, 17)) === 'Usage: igs check ';
  process.stdout.write(
    isOwn ? new TextDecoder().decode(output).replace(/^(Usage: )?igs[ -](check )?/, '$1igs-check ') : output,
  );
  return status;
}

process.stdout.on('error', () => process.exit(2)); // whoever read it has gone
try {
  process.exitCode = await run(process.argv.slice(2));
} catch (error) {
  console.error(`igs: ${error instanceof Error ? error.message : String(error)}`);
  process.exitCode = 2;
}

// Runs what `scripts/build wasm` made as the page and the package do: on the files of the working folder and standard
// input, which are read into memory; what the program has written there goes back to the disk.
//   node wasm_program.mjs BUILD_DIR WORD...
import { readdirSync, readFileSync, statSync, writeFileSync, writeSync } from 'node:fs';
import { resolve } from 'node:path';
import { fileURLToPath } from 'node:url';
import { bundle } from '../../web/bundle.mjs';

const [build, ...words] = process.argv.slice(2);
const made = (name) => resolve(build, 'bin', name);
const inject = [fileURLToPath(new URL('../../web/npm/random_node.ts', import.meta.url))];
const options = { alias: { 'igs-program': made('igs.js') }, format: 'esm', platform: 'node', inject };
const { text } = await bundle('module/program.ts', options);
const { Program } = await import(`data:text/javascript,${encodeURIComponent(text)}`);

const files = new Map();
const folders = ['.'];
for (const name of readdirSync('.', { recursive: true })) {
  const isFolder = statSync(name).isDirectory();
  if (isFolder) folders.push(name);
  files.set(isFolder ? `${name}/` : name, isFolder ? new Uint8Array() : new Uint8Array(readFileSync(name)));
}
const { SOURCE_DATE_EPOCH } = process.env;
const program = new Program(await WebAssembly.compile(readFileSync(made('igs.wasm'))), { SOURCE_DATE_EPOCH });
const run = await program.run(words, {
  files,
  input: new Uint8Array(readFileSync(0)),
});

for (const folder of folders) {
  for (const name of run.namesIn(folder)) {
    const path = folder === '.' ? name : `${folder}/${name}`;
    if (!folders.includes(path)) writeFileSync(path, run.file(path));
  }
}

function print(descriptor, bytes) {
  for (let at = 0; at < bytes.length; ) at += writeSync(descriptor, bytes, at);
}
print(1, run.output);
print(2, Buffer.from(run.complaints));
process.exitCode = run.status;

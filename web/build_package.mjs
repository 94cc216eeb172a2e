// Makes the package igs-check in a folder, from what `scripts/build wasm` has made.
//   node build_package.mjs FOLDER
import { spawnSync } from 'node:child_process';
import { copyFileSync, mkdirSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { bundle, viewerBundle, wasmFolder } from './bundle.mjs';

const pathOf = (name) => fileURLToPath(new URL(name, import.meta.url));
const folder = process.argv[2];
const write = (name, content) => writeFileSync(join(folder, name), content);

async function writeModule(name, entry, files, options) {
  const alias = { 'igs-files': pathOf(`npm/${files}`) };
  write(name, (await bundle(entry, { format: 'esm', minify: false, alias, ...options })).text);
}

/** The types of the exports, and of what these are made of. */
function writeTypes() {
  const made = join(folder, 'made');
  const words = ['--project', 'npm', '--noEmit', 'false', '--emitDeclarationOnly', '--declaration', '--rootDir', '.'];
  const { status } = spawnSync(pathOf('node_modules/.bin/tsc'), [...words, '--outDir', made], {
    cwd: pathOf('.'),
    stdio: 'inherit',
  });
  if (status !== 0) throw new Error('The types could not be made.');
  for (const name of ['npm/index.d.ts', 'module/types.d.ts']) {
    const to = join(folder, 'types', name);
    mkdirSync(join(to, '..'), { recursive: true });
    copyFileSync(join(made, name), to);
  }
  rmSync(made, { recursive: true });
}

/** The licences of what the compiler has put into the program; those of JavaScript packages stand in its files. */
function licences() {
  const debian = ['libcli11-dev', 'nlohmann-json3-dev', 'libfast-float-dev'].map(
    (name) => `/usr/share/doc/${name}/copyright`,
  );
  const texts = [...debian, '/usr/share/emscripten/system/lib/libc/musl/COPYRIGHT'].map((name) =>
    readFileSync(name, 'utf8'),
  );
  return [readFileSync(pathOf('npm/LICENSES'), 'utf8'), ...texts].join(`\n${'-'.repeat(80)}\n\n`);
}

const version = /^project\(igs VERSION ([\d.]+)/m.exec(readFileSync(pathOf('../CMakeLists.txt'), 'utf8'))[1];
const description = JSON.parse(readFileSync(pathOf('npm/package.json'), 'utf8'));

rmSync(folder, { recursive: true, force: true });
mkdirSync(folder, { recursive: true });
write('package.json', `${JSON.stringify({ name: description.name, version, ...description }, null, 2)}\n`);
write('LICENSES', licences());
write('page_template', (await viewerBundle()).pieces.join('\0'));
copyFileSync(join(wasmFolder, 'igs.wasm'), join(folder, 'igs.wasm'));
copyFileSync(pathOf('npm/README.md'), join(folder, 'README.md'));
copyFileSync(pathOf('../LICENSE'), join(folder, 'LICENSE'));
const forNode = { platform: 'node', inject: [pathOf('npm/random_node.ts')] };
await writeModule('node.js', 'npm/index.ts', 'files_node.ts', forNode);
await writeModule('browser.js', 'npm/index.ts', 'files_browser.ts');
await writeModule('cli.js', 'npm/cli.ts', 'files_node.ts', { ...forNode, banner: { js: '#!/usr/bin/env node' } });
writeTypes();

// Builds the page that checks and repairs files in the browser: a folder that any static server can serve. scripts/build
// wasm has compiled the program before.
//   node build_page.mjs                   into build/page
import { createHash } from 'node:crypto';
import { copyFileSync, mkdirSync, readdirSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { bundle, viewerBundle, wasmFolder } from './bundle.mjs';

const pathOf = (name) => fileURLToPath(new URL(name, import.meta.url));

/** The files of a folder and of those in it, by their paths from there. */
function pathsIn(folder, below = '') {
  return readdirSync(join(folder, below), { withFileTypes: true }).flatMap((entry) => {
    const path = below + entry.name;
    return entry.isDirectory() ? pathsIn(folder, `${path}/`) : [path];
  });
}

const hashOf = (data) => createHash('sha256').update(data).digest('base64');

function copyExamples(folder) {
  mkdirSync(folder);
  const names = readdirSync(pathOf('../examples/')).filter((name) => name.endsWith('.igs'));
  for (const name of names) copyFileSync(pathOf(`../examples/${name}`), join(folder, name));
  return names;
}

/** Builds into an empty folder. `main` and `worker` are the scripts that a page and its workers start with. */
export async function buildPage(folder, { main = 'page/main.ts', worker = 'page/worker.ts' } = {}) {
  const write = (name, text) => writeFileSync(join(folder, name), text);
  const exampleNames = JSON.stringify(copyExamples(join(folder, 'examples')));
  copyFileSync(`${wasmFolder}igs.wasm`, join(folder, 'igs.wasm'));
  copyFileSync(pathOf('page/index.html'), join(folder, 'index.html'));

  const viewer = await viewerBundle();
  write('viewer.js', viewer.script);
  write('viewer.css', viewer.style);
  // The page has viewer.js and viewer.css already, and puts them between these pieces.
  const pageFrame = JSON.stringify(
    viewer.pieces.map((piece) => piece.split(viewer.style).map((part) => part.split(viewer.script))),
  );
  write('app.js', (await bundle(main, { define: { pageFrame, exampleNames } })).text);
  write('worker.js', (await bundle(worker)).text);
  write('page.css', (await bundle('page/page.css')).text);

  const files = pathsIn(folder).map((path) => [path, `sha256-${hashOf(readFileSync(join(folder, path)))}`]);
  const release = JSON.stringify({ version: hashOf(JSON.stringify(files)).slice(0, 16), files });
  write('service_worker.js', (await bundle('page/service_worker.ts', { define: { release } })).text);
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  const folder = pathOf('../build/page/');
  rmSync(folder, { recursive: true, force: true });
  mkdirSync(folder, { recursive: true });
  await buildPage(folder);
}

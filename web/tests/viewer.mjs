// Modules of the viewer, and what a page holds for them, without a browser.
import { readFileSync } from 'node:fs';
import { fileURLToPath } from 'node:url';
import { build } from 'esbuild';

/** All that these modules of a folder of web/ export. */
export async function modules(folder, ...names) {
  const resolveDir = fileURLToPath(new URL(`../${folder}/`, import.meta.url));
  const contents = names.map((name) => `export * from './${name}.ts';`).join('\n');
  const made = await build({ stdin: { contents, resolveDir }, bundle: true, format: 'esm', write: false });
  return import(`data:text/javascript;base64,${Buffer.from(made.outputFiles[0].contents).toString('base64')}`);
}

export const viewer = (...names) => modules('viewer', ...names);

/** The packed model of a page. */
export const dataOfPage = (page) => /id="model">([^<]*)</.exec(readFileSync(page, 'utf8'))[1].trim();

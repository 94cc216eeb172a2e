// Bundles what of web/ becomes part of something else: the viewer in the template of a page, and whatever runs the
// compiled program.
import { createHash } from 'node:crypto';
import { readdirSync, readFileSync } from 'node:fs';
import { fileURLToPath } from 'node:url';
import { build } from 'esbuild';

const pathOf = (name) => fileURLToPath(new URL(name, import.meta.url));
const modules = pathOf('node_modules/');

/** What scripts/build wasm makes. */
export const wasmFolder = pathOf('../build/wasm/bin/');

/** The licences of the packages that a bundle holds part of, which ask to stand in every copy. */
function licencesOf(inputs) {
  const names = Object.keys(inputs).map((path) => /node_modules\/((?:@[^/]+\/)?[^/]+)\//.exec(path)?.[1]);
  const texts = [...new Set(names.filter((name) => name !== undefined))].map((name) => {
    const file = readdirSync(modules + name).find((file) => /^licen[cs]e/i.test(file));
    if (file === undefined) throw new Error(`The package ${name} comes without its licence.`);
    return `/* ${name}\n\n${readFileSync(`${modules}${name}/${file}`, 'utf8').replaceAll('\u00a9', '(c)').trim()}\n*/\n`;
  });
  return texts.join('');
}

/** One text of a source in web/ and all that it imports; `licences` stand at its end. esbuild's options may be others. */
export async function bundle(entry, { alias, ...options } = {}) {
  const result = await build({
    entryPoints: [pathOf(entry)],
    alias: { 'igs-program': `${wasmFolder}igs.js`, ...alias },
    bundle: true,
    write: false,
    minify: true,
    format: 'iife',
    target: 'es2022',
    charset: 'ascii',
    legalComments: 'eof',
    metafile: true,
    logLevel: 'warning',
    ...options,
  });
  const licences = licencesOf(result.metafile.inputs);
  return { text: result.outputFiles[0].text + licences, licences };
}

const hash = (text) => `'sha256-${createHash('sha256').update(text).digest('base64')}'`;

/**
 * The viewer: its script and style, the licences of what it is made of, the policy of a page that holds both, and such a
 * page in four pieces, between which title, still picture and model stand.
 */
export async function viewerBundle() {
  const { text: script, licences } = await bundle('viewer/main.ts');
  const { text: style } = await bundle('viewer/style.css');
  const policy = [
    "default-src 'none'",
    `script-src ${hash(script)}`,
    `style-src ${hash(style)}`,
    'img-src data: blob:',
    "connect-src 'none'",
    "base-uri 'none'",
    "form-action 'none'",
    "require-trusted-types-for 'script'",
    "trusted-types 'none'",
  ].join('; ');
  return { script, style, licences, policy, pieces: piecesOf({ script, style, policy }) };
}

function piecesOf({ script, style, policy }) {
  const known = {
    '{policy}': policy,
    '<link rel="stylesheet" href="style.css" />': `<style>${style}</style>`,
    '<script src="main.ts"></script>': `<script>${script}</script>`,
  };
  const page = readFileSync(pathOf('viewer/page.html'), 'utf8').replace(/\s*\n\s*/g, '\n');
  const pieces = [''];
  for (const part of page.split(/\s*(\{\w+\}|<link rel="stylesheet"[^>]*>|<script src[^>]*><\/script>)\s*/)) {
    if (part in known) pieces[pieces.length - 1] += known[part];
    else if (part.startsWith('{')) pieces.push('');
    else pieces[pieces.length - 1] += part;
  }
  if (pieces.length !== 4) throw new Error('The page is to have places for title, still picture and model.');
  if (/<\/(script|style)/i.test(script + style)) throw new Error('The viewer would end its own element.');
  if (/[^\t\n -~]/.test(pieces.join(''))) throw new Error('The page has other characters than those of ASCII.');
  return pieces;
}

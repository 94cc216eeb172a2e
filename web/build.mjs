// Bundles the viewer into the template of a page, as a C++ source that is compiled into the program.
//   node build.mjs OUT.cpp
import { createHash } from 'node:crypto';
import { readdirSync, readFileSync, writeFileSync } from 'node:fs';
import { fileURLToPath } from 'node:url';
import { build } from 'esbuild';

const folder = fileURLToPath(new URL('viewer/', import.meta.url));
const modules = fileURLToPath(new URL('node_modules/', import.meta.url));

/** The licences of the packages that a bundle holds part of, which ask to stand in every copy. */
function licences(inputs) {
  const names = Object.keys(inputs).map((path) => /node_modules\/((?:@[^/]+\/)?[^/]+)\//.exec(path)?.[1]);
  const texts = [...new Set(names.filter((name) => name !== undefined))].map((name) => {
    const file = readdirSync(modules + name).find((file) => /^licen[cs]e/i.test(file));
    if (file === undefined) throw new Error(`The package ${name} comes without its licence.`);
    return `/* ${name}\n\n${readFileSync(`${modules}${name}/${file}`, 'utf8').replaceAll('\u00a9', '(c)').trim()}\n*/\n`;
  });
  return texts.join('');
}

async function bundled(entry) {
  const result = await build({
    entryPoints: [folder + entry],
    bundle: true,
    write: false,
    minify: true,
    format: 'iife',
    target: 'es2022',
    charset: 'ascii',
    legalComments: 'eof',
    metafile: true,
    logLevel: 'warning',
  });
  return result.outputFiles[0].text + licences(result.metafile.inputs);
}

const hash = (text) => `'sha256-${createHash('sha256').update(text).digest('base64')}'`;

const script = await bundled('main.ts');
const style = await bundled('style.css');
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

const known = {
  '{policy}': policy,
  '<link rel="stylesheet" href="style.css" />': `<style>${style}</style>`,
  '<script src="main.ts"></script>': `<script>${script}</script>`,
};

// What stands between the places that the program fills in.
const page = readFileSync(folder + 'page.html', 'utf8').replace(/\s*\n\s*/g, '\n');
const pieces = [''];
for (const part of page.split(/\s*(\{\w+\}|<link rel="stylesheet"[^>]*>|<script src[^>]*><\/script>)\s*/)) {
  if (part in known) pieces[pieces.length - 1] += known[part];
  else if (part.startsWith('{')) pieces.push('');
  else pieces[pieces.length - 1] += part;
}
if (pieces.length !== 4) throw new Error('The page is to have places for title, still picture and model.');
if (/<\/(script|style)/i.test(script + style)) throw new Error('The viewer would end its own element.');
if (/[^\t\n -~]/.test(pieces.join(''))) throw new Error('The page has other characters than those of ASCII.');

/** Literals of no more than 16 kB, which every compiler takes. */
function literals(text) {
  const parts = text.match(/[^]{1,16000}/g) ?? [''];
  return parts.map((part) => JSON.stringify(part).replaceAll('?', '\\?')).join(',\n');
}

const source = pieces.map((piece) => `{${literals(piece)}}`).join(',\n');
writeFileSync(
  process.argv[2],
  `#include "view/page_template.h"

const std::array<std::vector<std::string_view>, 4>& page_template() {
  static const std::array<std::vector<std::string_view>, 4> pieces{{${source}}};
  return pieces;
}
`,
);

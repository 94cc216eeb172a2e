// A file whose texts look like markup, scripts and worse.
import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { folder } from './browser.mjs';

const sessions = fileURLToPath(new URL('../../tests/sessions', import.meta.url));

/** The path of a file as tests/sessions/iges.py describes them. */
function write(name, description) {
  const code = 'import sys; from iges import iges; sys.stdout.buffer.write(iges(sys.argv[1]))';
  const { status, stdout, stderr } = spawnSync('python3', ['-c', code, description], {
    env: { ...process.env, PYTHONPATH: sessions },
  });
  assert.equal(status, 0, stderr.toString());
  const file = join(folder, name);
  writeFileSync(file, stdout);
  return file;
}

const hollerith = (text) => `${text.length}H${text}`;
/** As iges.py reads it. */
const escaped = (text) =>
  text.replace(/[^ -~]|\\/g, (sign) => `\\x${sign.charCodeAt(0).toString(16).padStart(2, '0')}`);

export const texts = {
  script: '</script><img src=x onerror=alert(1)>',
  title: '</title><svg/onload=alert(2)>',
  comment: `"><!--'\`\${alert(3)}]]>&lt;&quot;`,
  control: 'a\u0001b\u001b[31mc\u007fd\u0085e',
  separators: 'x\u00e2\u0080\u00a8y\u00e2\u0080\u00a9z',
  invalid: '\u00ff\u00fe\u00c0\u00af<u>under</u>',
};

/** Every text is the name of a line, that of a colour, and a note. */
function description() {
  const entities = [];
  const add = (entity) => 2 * entities.push(entity) - 1;
  const damages = [];
  for (const text of Object.values(texts)) {
    const name = add(`406:15 1,${hollerith(text)}`);
    const colour = add(`314 100.,0.,0.,${hollerith(text)}`);
    const y = 10 * entities.length;
    const line = add(`110 0.,${y}.,0.,90.,${y}.,0.,0,1,${name}`);
    damages.push(`${line}.d12=9`, `${line}.d13=${-colour}`, `${line}.d18=<img>'"&`);
    add(`212 1,${text.length},${text.length}.,2.,1,1.57,0.,0,0,0.,${y + 3}.,0.,${hollerith(text)}`);
  }
  add('110 0.,0.,0.,0.,0.,0.');
  return [...entities, ...damages, `G3=${hollerith(texts.script)}`, `S=${texts.title}`].map(escaped).join(' ; ');
}

export const name = `"><img src=x onerror=alert(1)> '&amp;\u2028\u202e.igs`;
export const hostileFile = () => write(name, description());

/** What only markup in its texts makes. */
export const strangers = 'img:not(.still), iframe, object, embed, u, [onload], [onerror], svg script';

// What `igs view --compare` (the program is IGS_PROGRAM) says of two files.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { dataOfPage, viewer } from './viewer.mjs';

const program = process.env.IGS_PROGRAM;
assert.ok(program, 'IGS_PROGRAM names the program to test');
const folder = mkdtempSync(join(tmpdir(), 'igs-comparison-'));
after(() => rmSync(folder, { recursive: true }));

const { unpack } = await viewer('unpack');

const example = (name) => fileURLToPath(new URL(`../../examples/${name}.igs`, import.meta.url));

function compared(oldFile, newFile) {
  const page = join(folder, 'page.html');
  execFileSync(program, ['view', '--compare', oldFile, '-o', page, newFile]);
  return unpack(dataOfPage(page));
}

/** A copy of an example in which a record, "P19" for the 19th of the parameters, has other contents. */
function edited(name, record, from, to) {
  const file = join(folder, 'edited.igs');
  const lines = readFileSync(example(name), 'latin1').split('\n');
  const i = lines.findIndex((line) => line.slice(72).replace(/ +/, '') === record);
  assert.ok(lines[i].includes(from) && from.length === to.length, record);
  lines[i] = lines[i].replace(from, to);
  writeFileSync(file, lines.join('\n'), 'latin1');
  return file;
}

/** "curve 3 changed old": kind, DE number, change and file of the items that are not the same. */
function marks(model, items = model.items) {
  return items
    .filter(({ change }) => change !== 'none')
    .map(({ kind, entity, change }) => {
      const { de, old } = model.entities[entity];
      return `${kind} ${de} ${change}${old ? ' old' : ''}`;
    })
    .sort();
}

/** Change, DE number in the old file, DE number in the new file, fields. */
function listed(model) {
  const de = (entity) => (entity < 0 ? 0 : model.entities[entity].de);
  return model.differences.map(({ change, oldEntity, newEntity, fields }) => [
    change,
    de(oldEntity),
    de(newEntity),
    ...fields.map((field) => field.join(': ')),
  ]);
}

test('a file is the same as itself', async () => {
  for (const name of ['box', 'bracket-faulty', 'drawing', 'flange', 'surfaces']) {
    const model = await compared(example(name), example(name));
    assert.deepEqual([marks(model), listed(model), model.remarks], [[], [], ['the files are the same']], name);
  }
});

test('a repair is told field by field; what was removed, or looked different, is drawn, too', async () => {
  const model = await compared(example('bracket-faulty'), example('bracket'));
  assert.deepEqual([model.oldTitle, model.title], ['bracket-faulty.igs', 'bracket.igs']);
  assert.deepEqual(listed(model), [
    ['changed', 3, 3, 'Centre.y: 12: 10'],
    ['changed', 5, 5, 'line_weight: 12: 0'],
    ['changed', 7, 7, 'colour: 99: 4'],
    ['changed', 21, 21, 'line_font: 9: 0'],
    ['changed', 25, 25, 'level: DE 11: 0'],
    ['changed', 27, 27, 'form_number: 1: 0'],
    ['removed', 37, 0],
  ]);
  assert.deepEqual(marks(model), [
    'curve 21 changed',
    'curve 25 changed',
    'curve 3 changed',
    'curve 3 changed old',
    'curve 37 removed old',
    'curve 5 changed',
    'curve 7 changed',
    'curve 7 changed old',
  ]);
  const [arc] = model.differences;
  assert.deepEqual(marks(model, arc.items.map((item) => model.items[item])), ['curve 3 changed', 'curve 3 changed old']); // prettier-ignore
  assert.deepEqual(
    (await compared(example('bracket'), example('bracket-faulty'))).differences.map(({ change }) => change).at(-1),
    'added',
  );
});

test('an instance that was moved is marked, others of its definition are not; units are heeded', async () => {
  const moved = await compared(example('flange'), edited('flange', 'P11', '15,40.', '15,45.'));
  assert.deepEqual(listed(moved), [['changed', 19, 19, 'Translation.x: 40: 45']]);
  assert.deepEqual(marks(moved), ['curve 13 changed', 'curve 13 changed old', 'curve 17 changed', 'curve 17 changed old']); // prettier-ignore

  const larger = await compared(edited('box', 'G1', '2,2HMM', '1,2HIN'), example('box'));
  assert.equal(Math.round(larger.high[0]), 1524);
});

// What the page works out before it shows it: explanations as the program prints them, and files in dropped folders.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { igs } from './browser.mjs';
import { modules } from './viewer.mjs';

const { addressOf, classAt, familyOf, filesOf, readClasses, readTerms } = await modules('page', 'explanations', 'drop');

test('every class that the program explains is listed, with its family and its address', () => {
  const printed = igs('explain');
  const classes = readClasses(printed);
  assert.equal(classes.length, printed.trim().split('\n').length);
  for (const { name } of classes) assert.equal(classAt(addressOf(name)), name);
  const byName = new Map(classes.map((each) => [each.name, each]));
  const { isRepaired, severity, worst, sentence } = byName.get('igsShapeVertexOffEdge');
  assert.deepEqual([isRepaired, severity, worst], [true, 'note, warning or error by size', 'error']);
  assert.match(sentence, /^a vertex of edge \.\.\. .* the tolerance is \.\.\.$/);
  assert.equal(byName.get('igsFileUnknownForm').isRepaired, false);
  const families = { igs126NegativeWeight: 'Entity type 126', igsDEInvalidColour: 'Directory entry' };
  for (const [name, family] of Object.entries(families)) assert.equal(familyOf(name), family);
});

test('one class is told in terms', () => {
  const terms = new Map(readTerms(igs('explain', 'igs100InconsistRad')));
  assert.deepEqual([...terms.keys()], ['Meaning', 'Severity', 'Repair']);
  assert.match(terms.get('Repair'), /mean radius.*: --keep-geometry leaves/);
});

test('an address names a class, none, or what can be none', () => {
  const cases = {
    '': null,
    '#': null,
    '#other': null,
    '#explain=igsX_1': 'igsX_1',
    '#explain=': '',
    '#explain=--help': '',
  };
  for (const [hash, wanted] of Object.entries(cases)) assert.equal(classAt(hash), wanted, hash);
});

const file = (name) => ({ name, isFile: true, isDirectory: false, file: (resolve) => resolve(name) });
function folder(...entries) {
  const readEntries = () => (resolve) => resolve(entries.splice(0, 100));
  return { name: 'folder', isFile: false, isDirectory: true, createReader: () => ({ readEntries: readEntries() }) };
}

test('a dropped folder gives its IGES files, however deep or many, up to a bound', async () => {
  const names = async (...dropped) => (await filesOf(dropped)).files;
  const mixed = folder(file('b.IGS'), file('notes.txt'), folder(file('c.iges'), file('d.igs.bak')));
  assert.deepEqual(await names(file('a.txt'), mixed), ['a.txt', 'b.IGS', 'c.iges']);
  let deep = folder(file('deep.igs'));
  for (let i = 0; i < 10_000; ++i) deep = folder(deep);
  assert.deepEqual(await names(deep), ['deep.igs']);
  const many = (ending, number) => Array.from({ length: number }, (_, i) => file(i + ending));
  assert.equal((await names(...many('.txt', 3000))).length, 3000);
  for (const [entry, number, remark] of [
    [folder(...many('.igs', 3000)), 1000 + 1, /some were left out/],
    [folder(file('early.igs'), ...many('.txt', 50_000), file('late.igs')), 1, /some were left out/],
    [folder(folder(), file('notes.txt')), 0, /no IGES files/],
    [folder(file('a.igs')), 1, /^$/],
  ]) {
    const dropped = await filesOf([entry]);
    assert.equal(dropped.files.length, number);
    assert.match(dropped.remark, remark);
  }
});

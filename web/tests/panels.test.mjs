// What the panels work out before they show it: which items are shown, how findings are grouped, how lengths are written.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { viewer } from './viewer.mjs';

const { formatLength, groupFindings, ModelIndex, Store, Visibility } = await viewer(
  'visibility',
  'store',
  'model_index',
  'findings_list',
  'words',
);

const entity = (type, name, levels, old = false) => ({ type, typeName: 'X', de: 1, name, levels, old, colourName: '' });
const item = (kind, number, node, more = {}) => ({
  ...{ kind, entity: number, node, faces: [], colour: -1, off: false, change: 'none' },
  ...more,
});

// Faces 0 and 1 with edge 2 between them and edge 3 of face 1; curve 4, blanked; points 5, of the old file, and 6.
const model = {
  entities: [
    entity(144, 'Lid', [1, 2]),
    entity(144, 'Floor', [2]),
    entity(126, 'Rim', [3]),
    entity(110, '', [0]),
    entity(116, '', [0], true),
    entity(116, '', [0]),
  ],
  nodes: [
    { label: 'part', entity: -1, parent: -1 },
    { label: 'Faces', entity: -1, parent: 0 },
    { label: 'Curves', entity: -1, parent: 0 },
  ],
  items: [
    item('face', 0, 1, { colour: 0xff0000 }),
    item('face', 1, 1),
    item('edge', 2, 1, { faces: [0, 1] }),
    item('edge', 2, 1, { faces: [1] }),
    item('curve', 3, 2, { off: true }),
    item('point', 4, 0, { change: 'removed' }),
    item('point', 5, 0, { change: 'added' }),
  ],
  findings: [
    { severity: 'error', entity: 2, items: [3] },
    { severity: 'note', entity: 0, items: [0] },
  ],
  levels: [{ level: 2, name: 'walls', entities: 2 }],
  differences: [],
};

const shownAfter = (act) => {
  const store = new Store(model, false);
  const visibility = new Visibility(store);
  act(visibility, store);
  return store.state.shown.join('');
};

test('filters, hand and side say together what is shown', () => {
  const cases = {
    'at first': ['1111011', () => {}],
    'a level hides what is on hidden ones alone': ['1010011', (v) => v.filter({ levels: new Set([2]) })],
    'edges go with their last face': ['0000011', (v) => v.filter({ types: new Set([144]) })],
    'a colour': ['0111011', (v) => v.filter({ colours: new Set([0xff0000]) })],
    'blanked ones': ['1111111', (v) => v.filter({ withOff: true })],
    'a name': ['1010000', (v) => v.filter({ name: ' LID ' })],
    'an edge by its own name': ['0011000', (v) => v.filter({ name: 'rim' })],
    'the name of a branch': ['1111000', (v) => v.filter({ name: 'faces' })],
    severities: ['0001000', (v) => v.filter({ severities: new Set(['error']) })],
    'the old file': ['1111010', (_, store) => store.set({ side: 'old' })],
    'the new file': ['1111001', (_, store) => store.set({ side: 'new' })],
    'a hidden face takes its edge along': ['1010011', (v) => v.setShown([1], false)],
    'a hidden edge': ['1101011', (v) => v.setShown([2], false)],
    'a branch that is hidden and one of its faces shown again': [
      '0111011',
      (v) => {
        v.setShown([0, 1, 2, 3], false);
        v.setShown([1], true);
      },
    ],
    'only one face, with its edges': ['1010000', (v) => v.showOnly([0])],
    'what was asked for shows against the filters': [
      '1010111',
      (v) => {
        v.filter({ levels: new Set([2]) });
        v.setShown([4], true);
      },
    ],
    'a later filter hides what was asked for before': [
      '0000011',
      (v) => {
        v.setShown([0], true);
        v.filter({ types: new Set([144]) });
      },
    ],
    'what is asked for leaves the side on which it is not': [
      '1111011',
      (v, store) => {
        store.set({ side: 'old' });
        v.setShown([6], true);
      },
    ],
    'show all': [
      '1111011',
      (v, store) => {
        v.filter({ types: new Set([144]), name: 'x' });
        v.setShown([0, 5], false);
        store.set({ side: 'new' });
        v.showAll();
      },
    ],
  };
  for (const [name, [wanted, act]] of Object.entries(cases)) assert.equal(shownAfter(act), wanted, name);
});

test('what changed and looks as before is on both sides', () => {
  const [first, second, old] = [5, 5, 4].map((entity) => item('face', entity, 0, { change: 'changed' }));
  const compared = { ...model, items: [first, second, old], differences: [{ items: [0] }, { items: [1, 2] }] };
  const store = new Store(compared, false);
  new Visibility(store);
  for (const [side, wanted] of Object.entries({ both: '111', old: '101', new: '110' })) {
    store.set({ side });
    assert.equal(store.state.shown.join(''), wanted, side);
  }
});

test('what is chosen replaces what was chosen before', () => {
  const store = new Store(model, false);
  store.set({ chosen: [3], dependents: [0], finding: 0, entity: 2 });
  store.set({ chosen: [1] });
  const { chosen, dependents, finding, entity: of } = store.state;
  assert.deepEqual({ chosen, dependents, finding, of }, { chosen: [1], dependents: [], finding: -1, of: 1 });
});

test('the tree leads to every entity, its findings and its place', () => {
  const index = new ModelIndex(model);
  assert.deepEqual(index.itemsUnder(0), [0, 1, 2, 3, 4, 5, 6]);
  assert.deepEqual(index.itemsUnder(1), [0, 1, 2, 3]);
  assert.deepEqual(
    [...index.leavesOf(1)],
    [
      [0, [0]],
      [1, [1]],
    ],
  );
  assert.deepEqual([...index.leavesOf(0).keys()], [4, 5]);
  assert.deepEqual([[...index.findingsOfEntity(2)], [...index.findingsOfEntity(1)]], [[0], []]);
  assert.deepEqual(index.pathOf(2), ['part', 'Curves']);
  assert.deepEqual(
    [0, 2, 3].map((level) => index.levelTitle(level)),
    ['no level', '2 (walls)', '3'],
  );
});

test('findings that differ in numbers alone are one group', () => {
  const finding = (message, more = {}) => ({
    ...{ severity: 'error', className: 'A', consequence: false, message },
    ...more,
  });
  const findings = [
    finding('knot 4 is 0.5'),
    finding('knot 12 is -1e-9'),
    finding('knot 4 is missing'),
    finding('knot 5 is 1', { className: 'B' }),
    finding('knot 7 is 2', { consequence: true }),
  ];
  assert.deepEqual(
    groupFindings(findings, (each) => !each.consequence),
    [[0, 1], [2], [3]],
  );
  assert.deepEqual(
    groupFindings(findings, () => true),
    [[0, 1], [2], [3], [4]],
  );
});

test('lengths have the digits that the size of the model bears', () => {
  const cases = [
    [12.3456789, 100, '12.346'],
    [100, 100, '100'],
    [-1e-9, 100, '0'],
    [1234567.891, 1e7, '1234568'],
    [0.00012345678, 1e-3, '0.00012346'],
    [1e-20, 1e-20, '1.00000e-20'],
    [3e300, 1e300, '3.00000e+300'],
    [NaN, 1, 'unknown'],
  ];
  for (const [length, size, wanted] of cases) assert.equal(formatLength(length, size), wanted);
});

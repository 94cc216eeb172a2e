// GLB files that the program (IGS_PROGRAM) makes of the examples, and of the files in the folder IGES_CORPUS where that
// is set, are sound, say whose geometry they hold, and are the same every time.
import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { mkdtempSync, readFileSync, readdirSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, test } from 'node:test';
import { fileURLToPath } from 'node:url';
import validator from 'gltf-validator';

const program = process.env.IGS_PROGRAM;
assert.ok(program, 'IGS_PROGRAM names the program to test');
const examples = fileURLToPath(new URL('../../examples', import.meta.url));
const folder = mkdtempSync(join(tmpdir(), 'igs-glb-'));
after(() => rmSync(folder, { recursive: true }));

/** The bytes of the GLB file that the program makes of a file; nothing of a file that cannot be read at all. */
function made(file) {
  const target = join(folder, 'model.glb');
  rmSync(target, { force: true });
  const call = ['view', '--format', 'glb', '-o', target, file];
  const { status, stderr } = spawnSync(program, call, { encoding: 'utf8' });
  if (status === 2 && stderr.includes('not an IGES file')) return undefined;
  assert.ok(status < 2 || stderr.includes('not read to its end'), `${file}: ${stderr}`);
  return readFileSync(target);
}

async function problems(bytes) {
  const report = await validator.validateBytes(new Uint8Array(bytes), { maxIssues: 20 });
  return report.issues.messages.filter(({ severity }) => severity < 2);
}

/** The JSON part and the binary part. */
function parts(bytes) {
  const length = bytes.readUInt32LE(12);
  return { gltf: JSON.parse(bytes.subarray(20, 20 + length).toString()), binary: bytes.subarray(28 + length) };
}

function files(of) {
  return readdirSync(of)
    .filter((name) => /\.(igs|iges)$/i.test(name))
    .sort()
    .map((name) => join(of, name));
}

const all = [...files(examples), ...(process.env.IGES_CORPUS ? files(process.env.IGES_CORPUS) : [])];

for (const file of all) {
  test(`${file} makes a sound file`, async () => {
    const bytes = made(file);
    if (bytes === undefined) return;
    assert.deepEqual(await problems(bytes), []);
    assert.equal(made(file).compare(bytes), 0);
  });
}

/** The vector as the quaternion turns it. */
function turned([x, y, z, w], v) {
  const cross = (a, b) => [0, 1, 2].map((i) => a[(i + 1) % 3] * b[(i + 2) % 3] - a[(i + 2) % 3] * b[(i + 1) % 3]);
  const t = cross([x, y, z], v).map((part) => 2 * part);
  const u = cross([x, y, z], t);
  return v.map((part, i) => part + w * t[i] + u[i]);
}

test('a box of 60 x 40 x 25 mm stands upright, in metres', () => {
  const { gltf, binary } = parts(made(join(examples, 'box.igs')));
  const [root] = gltf.nodes;
  assert.equal(root.name, 'box.igs');
  const corners = gltf.accessors
    .filter(({ min }) => min)
    .flatMap(({ min, max }) => [min, max])
    .map((corner) => turned(root.rotation, corner));
  const extent = [0, 1, 2].map((axis) => {
    const values = corners.map((corner) => corner[axis]);
    return Math.max(...values) - Math.min(...values);
  });
  assert.deepEqual(
    extent.map((length) => Math.round(1e6 * length)),
    [60_000, 25_000, 40_000],
  );
  const drawn = gltf.nodes.filter(({ mesh }) => mesh !== undefined);
  const modes = drawn.map(({ extras, mesh }) => [extras.type, gltf.meshes[mesh].primitives[0].mode]);
  assert.equal(modes.filter(([type, mode]) => type === 510 && mode === 4).length, 6);
  assert.equal(modes.filter(([type, mode]) => type === 110 && mode === 3).length, 12);
  assert.ok(gltf.bufferViews.length <= 3);
  assert.equal(binary.length, gltf.buffers[0].byteLength);
});

test('nodes say whose they are; colours are linear; what is blanked is left out', async () => {
  const lines = readFileSync(join(examples, 'drawing.igs'), 'latin1').split('\n');
  const edit = (record, from, to) => {
    const i = lines.findIndex((line) => line.slice(72).replace(/ +/, '') === record);
    assert.ok(lines[i].includes(from), record);
    lines[i] = lines[i].replace(from, to);
  };
  edit('D1', '110       1       0       0       0', '110       1       0       0       7');
  edit('D2', '110       0       0', '110       0      -3');
  edit('D3', '110', '314');
  edit('D4', '110', '314');
  edit('P2', '110,80.,0.,0.,80.,50.,0.;', '314,60.,60.,60.;         ');
  edit('D5', '000000000', '001000000');
  const file = join(folder, 'edited.igs');
  writeFileSync(file, lines.join('\n'), 'latin1');
  const bytes = made(file);
  assert.deepEqual(await problems(bytes), []);
  const { gltf } = parts(bytes);
  const node = (de) => gltf.nodes.find(({ extras }) => extras?.DE === de);
  assert.equal(node(1).name, '110 Line (DE 1)');
  assert.deepEqual(node(1).extras, { DE: 1, type: 110, form: 0, level: 7 });
  const [{ material }] = gltf.meshes[node(1).mesh].primitives;
  assert.deepEqual(gltf.materials[material].pbrMetallicRoughness.baseColorFactor, [0.318547, 0.318547, 0.318547, 1]);
  assert.ok(gltf.materials[material].extensions.KHR_materials_unlit);
  assert.equal(node(5), undefined);
  assert.equal(node(15).extras.text, 'PLATE');
});

// What the program packs into a page is what its figures say of the file; damage is told in a sentence.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdtempSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { inflateSync } from 'node:zlib';
import { dataOfPage, viewer } from './viewer.mjs';

const program = process.env.IGS_PROGRAM;
const examples = fileURLToPath(new URL('../../examples/', import.meta.url));
const folder = mkdtempSync(join(tmpdir(), 'igs-unpack-'));
after(() => rmSync(folder, { recursive: true }));

const { unpack } = await viewer('unpack');

function dataOf(name) {
  const page = join(folder, name + '.html');
  execFileSync(program, ['view', '-o', page, examples + name]);
  return dataOfPage(page);
}

const figuresOf = (name) =>
  JSON.parse(execFileSync(program, ['info', '--geometry', '--format', 'json', examples + name])).geometry;

const minus = (a, b) => a.map((value, i) => value - b[i]);
const length = (vector) => Math.hypot(...vector);
const cross = ([a, b, c], [d, e, f]) => [b * f - c * e, c * d - a * f, a * e - b * d];
const near = (value, expected, tolerance) =>
  assert.ok(Math.abs(value - expected) <= tolerance, `${value} instead of ${expected}`);

function* triangles(model, item) {
  for (let i = item.triangles[0]; i < item.triangles[1]; ++i) {
    const corners = [...model.triangles.subarray(3 * i, 3 * i + 3)];
    assert.ok(corners.every((corner) => corner >= item.points[0] && corner < item.points[1]));
    yield corners;
  }
}

function areaOf(model) {
  let area = 0;
  for (const item of model.items.filter(({ kind }) => kind === 'face')) {
    for (const corners of triangles(model, item)) {
      const [a, b, c] = corners.map((corner) => [...model.points.subarray(3 * corner, 3 * corner + 3)]);
      const across = cross(minus(b, a), minus(c, a));
      area += length(across) / 2;
      for (const corner of length(across) > 1e-6 ? corners : []) {
        const normal = [...model.normals.subarray(3 * corner, 3 * corner + 3)];
        near(length(normal), 127, 1.5);
        // Corners are turned as their normals are.
        assert.ok(normal.reduce((sum, value, axis) => sum + value * across[axis], 0) > 0);
      }
    }
  }
  return area;
}

function edgeLengthOf(model) {
  let sum = 0;
  for (const item of model.items.filter(({ kind }) => kind === 'edge' || kind === 'curve')) {
    for (let line = item.lines[0]; line < item.lines[1]; ++line) {
      for (let i = model.lineStarts[line] + 1; i < model.lineStarts[line + 1]; ++i) {
        sum += length(minus(model.linePoints.subarray(3 * i, 3 * i + 3), model.linePoints.subarray(3 * i - 3, 3 * i)));
      }
    }
  }
  return sum;
}

function boxOf(model) {
  const middle = model.low.map((low, axis) => (low + model.high[axis]) / 2);
  const all = [model.points, model.linePoints];
  const of = (choose) =>
    middle.map(
      (value, axis) =>
        all.flatMap((points) => [...points.filter((_, i) => i % 3 === axis)]).reduce((a, b) => choose(a, b)) + value,
    );
  return [of(Math.min), of(Math.max)];
}

for (const name of ['box.igs', 'surfaces.igs', 'flange.igs', 'curves.igs']) {
  test(`${name} measures what the program says`, async () => {
    const figures = figuresOf(name);
    const size = length(minus(...figures.box));
    const model = await unpack(dataOf(name));
    assert.equal(model.items.filter(({ kind }) => kind === 'face').length, figures.faces);
    near(areaOf(model), figures.area, 1e-2 * figures.area);
    // A surface that nothing trims ends where no curve of the file is.
    if (name !== 'surfaces.igs') near(edgeLengthOf(model), figures.edge_length, 1e-2 * figures.edge_length);
    boxOf(model).forEach((corner, i) =>
      corner.forEach((value, axis) => near(value, figures.box[i][axis], 1e-3 * size)),
    );
    for (const item of model.items) assert.ok(item.faces.every((face) => model.items[face].kind === 'face'));
  });
}

test('damage is told in a sentence, wherever it is', async () => {
  const data = dataOf('box.igs');
  const told = { message: 'The model in this page is damaged.' };
  for (const part of ['', 'A', '!', data.slice(0, data.length / 2)]) await assert.rejects(unpack(part), told);
  // Where no checksum finds it, what is unpacked refers to nothing that is not there.
  const plain = Buffer.concat([Buffer.from([0]), inflateSync(Buffer.from(data, 'base64').subarray(1))]);
  for (let i = 1; i < plain.length; i += 3) {
    const damaged = Buffer.from(plain);
    damaged[i] ^= 0x55;
    const model = await unpack(damaged.toString('base64')).catch((error) => assert.equal(error.message, told.message));
    if (model) assert.ok(model.triangles.every((corner) => 3 * corner < model.points.length));
  }
});

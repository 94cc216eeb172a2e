// Unpacks points, triangles and polylines: the inverse of the program's PackedGeometry.
import type { Column, Columns } from './columns.ts';
import type { Item, Model } from './model.ts';
import { check } from './rows.ts';

type Grid = { readonly step: number; readonly origin: readonly number[] };
type Edge = readonly [from: number, to: number, opposite: number];

/** A typed array that grows; numbers beyond what it holds are 0. */
class Numbers {
  values = new Int32Array(1024);
  size = 0;

  push(value: number): void {
    if (this.size === this.values.length) {
      const values = new Int32Array(2 * this.size);
      values.set(this.values);
      this.values = values;
    }
    this.values[this.size++] = value;
  }
}

/** Points on the grid, told by how far they are from where they were to be expected. */
class Points {
  readonly numbers = new Numbers();

  constructor(readonly columns: readonly Column[]) {}

  get count(): number {
    return this.numbers.size / this.columns.length;
  }

  /** Expected is a + b - c, these being points. */
  add(a: number, b: number, c: number): void {
    const { values } = this.numbers;
    const size = this.columns.length;
    this.columns.forEach((column, axis) => {
      const at = (point: number) => (point < 0 ? 0 : (values[size * point + axis] ?? 0));
      this.numbers.push(at(a) + at(b) - at(c) + column.number());
    });
  }

  placed(grid: Grid): Float32Array {
    const result = new Float32Array(this.numbers.size);
    for (let i = 0; i < result.length; ++i) {
      result[i] = (this.numbers.values[i] ?? 0) * grid.step + (grid.origin[i % 3] ?? 0);
    }
    return result;
  }
}

/** The directions of points of the unfolded octahedron, as three bytes each. */
function normalsOf(folded: Int32Array, has: Numbers): Int8Array {
  const result = new Int8Array(3 * has.size);
  for (let i = 0; i < has.size; ++i) {
    if (has.values[i] === 0) continue;
    let u = (folded[2 * i] ?? 0) / 127;
    let v = (folded[2 * i + 1] ?? 0) / 127;
    const z = 1 - Math.abs(u) - Math.abs(v);
    if (z < 0) {
      [u, v] = [(1 - Math.abs(v)) * (u < 0 ? -1 : 1), (1 - Math.abs(u)) * (v < 0 ? -1 : 1)];
    }
    const scale = 127 / Math.hypot(u, v, z);
    result.set([Math.round(u * scale), Math.round(v * scale), Math.round(z * scale)], 3 * i);
  }
  return result;
}

export class GeometryReader {
  readonly #columns: Columns['of'];
  readonly #grid: Grid;
  readonly #points: Points;
  readonly #normals: Points;
  readonly #hasNormal = new Numbers();
  readonly #triangles = new Numbers();
  readonly #linePoints: Points;
  readonly #lineStarts = new Numbers();
  /** Of the item that is read: its first point, the known point named last, edges that may lead to a neighbour. */
  #first = 0;
  #known = 0;
  #edges: Edge[] = [];

  constructor(columns: Columns, grid: Grid) {
    this.#columns = columns.of;
    const { x, y, z, normalsU, normalsV, lineX, lineY, lineZ } = columns.of;
    this.#grid = grid;
    this.#points = new Points([x, y, z]);
    this.#normals = new Points([normalsU, normalsV]);
    this.#linePoints = new Points([lineX, lineY, lineZ]);
  }

  next(): Pick<Item, 'points' | 'triangles' | 'lines'> {
    const { counts } = this.#columns;
    const [numPoints, numTriangles, numLines] = [counts.number(), counts.number(), counts.number()];
    this.#first = this.#points.count;
    const firstTriangle = this.#triangles.size / 3;
    const firstLine = this.#lineStarts.size;
    if (numTriangles > 0) this.#readTriangles(numTriangles);
    else for (let i = 0; i < numPoints; ++i) this.#addPoint();
    check(this.#points.count - this.#first === numPoints);
    const hasNormals = counts.number();
    for (let i = 0; i < numPoints; ++i) this.#hasNormal.push(hasNormals);
    for (let i = 0; i < numLines; ++i) this.#readLine();
    return {
      points: [this.#first, this.#points.count],
      triangles: [firstTriangle, this.#triangles.size / 3],
      lines: [firstLine, this.#lineStarts.size],
    };
  }

  finish(): Pick<Model, 'points' | 'normals' | 'triangles' | 'linePoints' | 'lineStarts'> {
    this.#lineStarts.push(this.#linePoints.count);
    return {
      points: this.#points.placed(this.#grid),
      normals: normalsOf(this.#normals.numbers.values, this.#hasNormal),
      triangles: Uint32Array.from(this.#triangles.values.subarray(0, this.#triangles.size)),
      linePoints: this.#linePoints.placed(this.#grid),
      lineStarts: Uint32Array.from(this.#lineStarts.values.subarray(0, this.#lineStarts.size)),
    };
  }

  /** From neighbour to neighbour over the edges, those that were met last first. */
  #readTriangles(count: number): void {
    const { links } = this.#columns;
    const end = this.#triangles.size + 3 * count;
    this.#known = 0;
    this.#edges = [];
    while (this.#triangles.size < end) {
      const edge = this.#edges.pop();
      if (edge === undefined) {
        const [a, b, c] = [this.#corner(links.number()), this.#corner(links.number()), this.#corner(links.number())];
        this.#addTriangle(a, b, c);
        this.#edges.push([b, c, a], [c, a, b], [a, b, c]);
        continue;
      }
      const link = links.number();
      if (link === 0) continue;
      const [from, to] = edge;
      const corner = this.#corner(link, edge);
      this.#addTriangle(to, from, corner);
      this.#edges.push([corner, to, from], [from, corner, to]);
    }
  }

  /** The point that a link names: 1 is a new one beyond the edge, others are told from the known point named last. */
  #corner(link: number, edge?: Edge): number {
    if (link === 1) return this.#addPoint(edge);
    this.#known += link < 0 ? link : link - 2;
    const point = this.#first + this.#known;
    check(link !== 0 && this.#known >= 0 && point < this.#points.count);
    return point;
  }

  #addPoint(edge?: Edge): number {
    const last = this.#points.count - 1;
    const [from, to, opposite] = edge ?? [last, last, last];
    this.#points.add(from, to, opposite);
    this.#normals.add(from, from, from);
    return last + 1;
  }

  #addTriangle(a: number, b: number, c: number): void {
    for (const corner of [a, b, c]) this.#triangles.push(corner);
  }

  #readLine(): void {
    this.#lineStarts.push(this.#linePoints.count);
    const count = this.#columns.lineCounts.number();
    for (let i = 0; i < count; ++i) {
      // Lines go on as they came.
      const last = this.#linePoints.count - 1;
      this.#linePoints.add(last, last, i > 1 ? last - 1 : last);
    }
  }
}

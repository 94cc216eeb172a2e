// The numbers of the model, in the columns in which the program packs them.
import { check, DamagedModel } from './rows.ts';

/** The numbers of a column, each in as few bytes as it needs; see the program's Column. */
export class Column {
  #next = 0;

  constructor(readonly bytes: Uint8Array) {}

  number(): number {
    let rest = 0;
    for (let shift = 0; shift < 35; shift += 7) {
      const byte = this.bytes[this.#next++];
      check(byte !== undefined);
      rest |= (byte & 127) << shift;
      if (byte < 128) return (rest >>> 1) ^ -(rest & 1);
    }
    throw new DamagedModel();
  }
}

/** In the order in which they stand. */
const names = [
  'flags',
  'entities',
  'nodes',
  'firstFaces',
  'secondFaces',
  'colours',
  'counts',
  'links',
  'x',
  'y',
  'z',
  'normalsU',
  'normalsV',
  'lineCounts',
  'lineX',
  'lineY',
  'lineZ',
] as const;

export class Columns {
  readonly of: Readonly<Record<(typeof names)[number], Column>>;

  constructor(bytes: Uint8Array, sizes: readonly number[]) {
    let start = 0;
    const columns = names.map((name, i) => {
      const size = sizes[i];
      check(size !== undefined && Number.isInteger(size) && size >= 0 && size <= bytes.length - start);
      start += size;
      return [name, new Column(bytes.subarray(start - size, start))] as const;
    });
    this.of = Object.fromEntries(columns) as Record<(typeof names)[number], Column>;
  }
}

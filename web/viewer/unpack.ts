// Unpacks what the program packed into the page: a header of JSON, and columns of numbers.
import { Columns } from './columns.ts';
import { GeometryReader } from './geometry.ts';
import type { Entity, Finding, Item, Model } from './model.ts';
import { check, DamagedModel, Row } from './rows.ts';

const severities = ['note', 'warning', 'error'] as const;
const changes = ['none', 'changed', 'added', 'removed'] as const;
const kinds = ['face', 'edge', 'curve', 'point', 'annotation'] as const;

async function inflated(packed: Uint8Array<ArrayBuffer>): Promise<Uint8Array> {
  const isDeflated = packed[0] === 1;
  const data = packed.subarray(1);
  if (!isDeflated) return data;
  const stream = new Blob([data]).stream().pipeThrough(new DecompressionStream('deflate'));
  return new Uint8Array(await new Response(stream).arrayBuffer());
}

function bytesOf(base64: string): Uint8Array<ArrayBuffer> {
  const text = atob(base64);
  const bytes = new Uint8Array(text.length);
  for (let i = 0; i < text.length; ++i) bytes[i] = text.charCodeAt(i);
  return bytes;
}

class Header {
  readonly #members: Readonly<Record<string, unknown>>;

  constructor(json: string) {
    const members: unknown = JSON.parse(json);
    check(typeof members === 'object' && members !== null);
    this.#members = members as Record<string, unknown>;
  }

  /** The member as the only value of a row. */
  get(name: string): Row {
    return new Row([this.#members[name]]);
  }

  vector(name: string): readonly [number, number, number] {
    return new Row(this.#members[name]).vector();
  }
}

function readEntity(row: Row, labels: readonly string[], values: readonly string[]): Entity {
  check(labels.length === values.length);
  return {
    de: row.number(),
    type: row.number(),
    form: row.number(),
    line: row.number(),
    old: row.flag(),
    typeName: row.text(),
    name: row.text(),
    colourName: row.text(),
    levels: row.list((levels) => levels.number()),
    fields: labels.map((label, i) => [label, values[i] ?? ''] as const),
    fieldsLeftOut: row.number(),
  };
}

function readFinding(row: Row, numEntities: number, numItems: number): Finding {
  return {
    severity: row.oneOf(severities),
    className: row.text(),
    message: row.text(),
    place: row.text(),
    line: row.number(),
    entity: row.position(numEntities),
    consequence: row.flag(),
    items: row.list((items) => items.position(numItems)),
    dependents: row.list((items) => items.position(numItems)),
  };
}

/** The lists of the header; what they refer to is there. */
function readLists(header: Header, numItems: number) {
  const texts = (name: string) => header.get(name).rows((row) => row.rest((one) => one.text()));
  const [labels, values] = [texts('fieldLabels'), texts('fieldValues')];
  const entities = header.get('entities').rows((row, i) => readEntity(row, labels[i] ?? [], values[i] ?? []));
  const nodes = header.get('nodes').rows((row) => ({
    label: row.text(),
    entity: row.position(entities.length),
    parent: row.number(),
  }));
  nodes.forEach((node, i) => check(Number.isInteger(node.parent) && node.parent >= -1 && node.parent < i));
  return {
    entities,
    nodes,
    remarks: header.get('remarks').list((remarks) => remarks.text()),
    levels: header.get('levels').rows((row) => ({ level: row.number(), name: row.text(), entities: row.number() })),
    findings: header.get('findings').rows((row) => readFinding(row, entities.length, numItems)),
    differences: header.get('differences').rows((row) => ({
      change: row.oneOf(changes),
      oldEntity: row.position(entities.length),
      newEntity: row.position(entities.length),
      fields: row.rows((field) => [field.text(), field.text(), field.text()] as const),
      items: row.list((items) => items.position(numItems)),
    })),
    texts: header.get('texts').rows((row) => ({
      item: row.position(numItems),
      text: row.text(),
      start: row.vector(),
      along: row.vector(),
      up: row.vector(),
    })),
  };
}

/** What is said of the items but their geometry; most numbers are differences from the item before. */
class ItemReader {
  readonly #columns: Columns;
  readonly #sizes: { readonly items: number; readonly entities: number; readonly nodes: number };
  #entity = 0;
  #node = 0;
  readonly #faces: [number, number] = [0, 0];

  constructor(columns: Columns, sizes: { readonly items: number; readonly entities: number; readonly nodes: number }) {
    this.#columns = columns;
    this.#sizes = sizes;
  }

  next(): Omit<Item, 'points' | 'triangles' | 'lines'> {
    const { flags, entities, nodes, firstFaces, secondFaces, colours } = this.#columns.of;
    const flag = flags.number();
    const kind = kinds[flag >> 3];
    const change = changes[(flag >> 1) & 3];
    check(kind !== undefined && change !== undefined);
    this.#entity += entities.number();
    this.#node += nodes.number();
    this.#faces[0] += firstFaces.number();
    this.#faces[1] += secondFaces.number();
    const isPosition = (value: number, size: number) => value >= -1 && value < size;
    check(isPosition(this.#entity, this.#sizes.entities) && isPosition(this.#node, this.#sizes.nodes));
    check(this.#faces.every((face) => isPosition(face, this.#sizes.items)));
    return {
      kind,
      entity: this.#entity,
      node: this.#node,
      faces: this.#faces.filter((face) => face >= 0),
      colour: colours.number(),
      off: (flag & 1) === 1,
      change,
    };
  }
}

type Vector = readonly [number, number, number];

function readModel(data: Uint8Array): Model {
  check(data.length >= 4);
  const endOfHeader = 4 + new DataView(data.buffer, data.byteOffset).getUint32(0, true);
  check(endOfHeader <= data.length);
  const header = new Header(new TextDecoder().decode(data.subarray(4, endOfHeader)));
  const columns = new Columns(
    data.subarray(endOfHeader),
    header.get('columns').list((sizes) => sizes.number()),
  );
  const numItems = header.get('numItems').number();
  const lists = readLists(header, numItems);
  const [low, high] = [header.vector('low'), header.vector('high')];
  const fromMiddle = ([x, y, z]: Vector): Vector => [
    x - (low[0] + high[0]) / 2,
    y - (low[1] + high[1]) / 2,
    z - (low[2] + high[2]) / 2,
  ];
  const sizes = { items: numItems, entities: lists.entities.length, nodes: lists.nodes.length };
  const itemReader = new ItemReader(columns, sizes);
  const geometry = new GeometryReader(columns, {
    step: header.get('step').number(),
    origin: fromMiddle(header.vector('origin')),
  });
  const items: Item[] = [];
  while (items.length < numItems) items.push({ ...itemReader.next(), ...geometry.next() });
  const [notes, warnings, errors] = header.vector('counts');
  return {
    ...lists,
    texts: lists.texts.map((text) => ({ ...text, start: fromMiddle(text.start) })),
    ...geometry.finish(),
    title: header.get('title').text(),
    oldTitle: header.get('oldTitle').text(),
    units: header.get('units').text(),
    solid: header.get('solid').flag(),
    chord: header.get('chord').number(),
    angle: header.get('angle').number(),
    low,
    high,
    items,
    counts: [errors, warnings, notes],
    direction: header.vector('direction'),
  };
}

/** Throws an error, whose message is for people, where the data are damaged. */
export async function unpack(base64: string): Promise<Model> {
  try {
    return readModel(await inflated(bytesOf(base64)));
  } catch (error) {
    // What atob, JSON.parse and the decompression find is the same to people.
    throw error instanceof DamagedModel ? error : new DamagedModel({ cause: error });
  }
}

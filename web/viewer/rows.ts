// Reads what JSON.parse makes of a page's header, which is lists of rows, and trusts none of it.

export class DamagedModel extends Error {
  constructor(options?: ErrorOptions) {
    super('The model in this page is damaged.', options);
  }
}

export function check(isSound: boolean): asserts isSound {
  if (!isSound) throw new DamagedModel();
}

/** The values of a row, one after the other. */
export class Row {
  readonly #values: readonly unknown[];
  #next = 0;

  constructor(values: unknown) {
    check(Array.isArray(values));
    this.#values = values;
  }

  number(): number {
    const value = this.#values[this.#next++];
    check(typeof value === 'number');
    return value;
  }

  /** A position in a list of so many, or -1. */
  position(size: number): number {
    const value = this.number();
    check(Number.isInteger(value) && value >= -1 && value < size);
    return value;
  }

  text(): string {
    const value = this.#values[this.#next++];
    check(typeof value === 'string');
    return value;
  }

  flag(): boolean {
    return this.#values[this.#next++] === true;
  }

  vector(): readonly [number, number, number] {
    return [this.number(), this.number(), this.number()];
  }

  oneOf<Value>(values: readonly Value[]): Value {
    const value = values[this.number()];
    check(value !== undefined);
    return value;
  }

  /** A list within the row; `read` takes each of its values from a row that holds all of them. */
  list<Value>(read: (row: Row) => Value): Value[] {
    return new Row(this.#values[this.#next++]).rest(read);
  }

  /** A list of rows. */
  rows<Value>(read: (row: Row, i: number) => Value): Value[] {
    return this.list((row) => read(new Row(row.#values[row.#next]), row.#next++));
  }

  rest<Value>(read: (row: Row) => Value): Value[] {
    const result: Value[] = [];
    while (this.#next < this.#values.length) result.push(read(this));
    return result;
  }
}

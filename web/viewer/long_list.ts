// A list of which the first rows are made, and more when they are asked for.
import { make, makeButton } from './dom.ts';
import { formatCount } from './words.ts';

const rowsAtOnce = 500;

export class LongList {
  readonly element: HTMLElement;
  readonly #count: number;
  readonly #makeRow: (row: number) => HTMLElement;
  #made = 0;
  #more: HTMLElement | null = null;

  constructor(list: HTMLElement, count: number, makeRow: (row: number) => HTMLElement) {
    this.element = list;
    this.#count = count;
    this.#makeRow = makeRow;
    this.#add(rowsAtOnce);
  }

  /** Makes all rows up to this one. */
  reach(row: number): void {
    if (row >= this.#made && row < this.#count) this.#add(row + 1 - this.#made);
  }

  #add(rows: number): void {
    this.#more?.remove();
    this.#more = null;
    const end = Math.min(this.#made + rows, this.#count);
    const fragment = document.createDocumentFragment();
    for (; this.#made < end; ++this.#made) fragment.append(this.#makeRow(this.#made));
    this.element.append(fragment);
    if (this.#made === this.#count) return;
    const first = this.#made;
    const label = `Show more (${formatCount(this.#count - first)})`;
    const button = makeButton(label, () => this.#addAndFocus(first), { class: 'more' });
    const isTable = this.element instanceof HTMLTableSectionElement;
    this.#more = isTable ? make('tr', {}, make('td', { colspan: 3 }, button)) : make('li', {}, button);
    this.element.append(this.#more);
  }

  #addAndFocus(first: number): void {
    this.#add(rowsAtOnce);
    this.element.children[first]?.querySelector<HTMLElement>('button, input')?.focus();
  }
}

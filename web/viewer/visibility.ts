// Which items are shown.
import type { Item, Model, Severity } from './model.ts';
import type { Store } from './store.ts';

export interface Filters {
  /** What is hidden by its level (where it is on hidden ones alone), colour and type. */
  readonly levels: ReadonlySet<number>;
  readonly colours: ReadonlySet<number>;
  readonly types: ReadonlySet<number>;
  /** Only what has this in its name, or stands in the tree under what has; empty for all. */
  readonly name: string;
  /** Only what has findings of these; none for all. */
  readonly severities: ReadonlySet<Severity>;
  /** Also what is off in the file. */
  readonly withOff: boolean;
}

export const noFilters: Filters = {
  levels: new Set(),
  colours: new Set(),
  types: new Set(),
  name: '',
  severities: new Set(),
  withOff: false,
};

/** What was said of single items, which goes before the filters. */
export const Hand = { none: 0, shown: 1, hidden: 2 } as const;

function itemsNamed(model: Model, name: string): (item: Item) => boolean {
  const wanted = name.trim().toLowerCase();
  if (wanted === '') return () => true;
  const has = (text: string | undefined): boolean => text?.toLowerCase().includes(wanted) ?? false;
  const inNode = new Uint8Array(model.nodes.length);
  // A node stands behind its parent.
  model.nodes.forEach((node, number) => {
    inNode[number] = inNode[node.parent] === 1 || has(node.label) ? 1 : 0;
  });
  return (item) => inNode[item.node] === 1 || has(model.entities[item.entity]?.name);
}

function itemsWithFindings(model: Model, severities: ReadonlySet<Severity>): (number: number) => boolean {
  if (severities.size === 0) return () => true;
  const isFaulty = new Uint8Array(model.items.length);
  for (const finding of model.findings)
    if (severities.has(finding.severity)) for (const item of finding.items) isFaulty[item] = 1;
  return (number) => isFaulty[number] === 1;
}

function isEdgeOfFaces(item: Item): boolean {
  return item.kind === 'edge' && item.faces.length > 0;
}

/** An item a byte: 1 where the filters let it through. Edges go with their faces, and show where they are looked for. */
export function filteredItems(model: Model, filters: Filters): Uint8Array {
  const isNamed = itemsNamed(model, filters.name);
  const isFaulty = itemsWithFindings(model, filters.severities);
  const passes = Uint8Array.from(model.items, (item, number) => {
    const entity = model.entities[item.entity];
    const levels = entity?.levels ?? [];
    const isHidden =
      (item.off && !filters.withOff) ||
      filters.colours.has(item.colour) ||
      (entity !== undefined && filters.types.has(entity.type)) ||
      (levels.length > 0 && levels.every((level) => filters.levels.has(level)));
    return !isHidden && isFaulty(number) && isNamed(item) ? 1 : 0;
  });
  const isSearch = filters.name.trim() !== '' || filters.severities.size > 0;
  model.items.forEach((item, number) => {
    if (!isEdgeOfFaces(item) || (isSearch && passes[number] === 1)) return;
    passes[number] = item.faces.some((face) => passes[face] === 1) ? 1 : 0;
  });
  return passes;
}

const Sided = { both: 0, old: 1, new: 2 } as const;

/** An item a byte: of which file it is part. What changed but looks as before stands for both. */
function sidesOf(model: Model): Uint8Array {
  const isOld = (number: number): boolean => model.entities[model.items[number]?.entity ?? -1]?.old ?? false;
  const isReplaced = new Uint8Array(model.items.length);
  for (const { items } of model.differences) if (items.some(isOld)) for (const item of items) isReplaced[item] = 1;
  return Uint8Array.from(model.items, ({ change }, number) => {
    if (isOld(number)) return change === 'none' ? Sided.both : Sided.old;
    return change === 'added' || (change === 'changed' && isReplaced[number] === 1) ? Sided.new : Sided.both;
  });
}

/** An item a byte: 1 where it is shown. */
function shownItems(
  model: Model,
  passes: Uint8Array,
  hand: Uint8Array,
  isOnSide: (item: number) => boolean,
): Uint8Array {
  const shown = Uint8Array.from(model.items, (_, number) => {
    const isShown = hand[number] === Hand.none ? passes[number] === 1 : hand[number] === Hand.shown;
    return isShown && isOnSide(number) ? 1 : 0;
  });
  model.items.forEach((item, number) => {
    if (hand[number] !== Hand.none || !isEdgeOfFaces(item) || !isOnSide(number)) return;
    const areShown = item.faces.some((face) => shown[face] === 1);
    const areHidden = item.faces.some((face) => hand[face] === Hand.hidden);
    shown[number] = areShown || (passes[number] === 1 && !areHidden) ? 1 : 0;
  });
  return shown;
}

/** Keeps the store's `shown` as the filters and the user's hand have it. */
export class Visibility {
  readonly #store: Store;
  readonly #hand: Uint8Array;
  readonly #sides: Uint8Array;
  readonly #listeners: (() => void)[] = [];
  #filters = noFilters;
  #passes: Uint8Array;

  constructor(store: Store) {
    this.#store = store;
    this.#hand = new Uint8Array(store.model.items.length);
    this.#sides = sidesOf(store.model);
    this.#passes = filteredItems(store.model, noFilters);
    store.listen((_, change) => {
      if (change.side !== undefined) this.#show();
    });
    this.#show();
  }

  get filters(): Filters {
    return this.#filters;
  }

  /** Tells when the filters have changed. */
  listen(listener: () => void): void {
    this.#listeners.push(listener);
  }

  /** What a filter newly hides is hidden, even if it was asked for before. */
  filter(change: Partial<Filters>): void {
    const before = this.#passes;
    this.#filters = { ...this.#filters, ...change };
    this.#passes = filteredItems(this.#store.model, this.#filters);
    this.#hand.forEach((said, item) => {
      if (said === Hand.shown && before[item] === 1 && this.#passes[item] === 0) this.#hand[item] = Hand.none;
    });
    this.#show();
    for (const listener of this.#listeners) listener();
  }

  /** As at first. */
  showAll(): void {
    this.#hand.fill(Hand.none);
    this.#store.set({ side: 'both' });
    this.filter(noFilters);
  }

  /** Shows or hides these whatever the filters say; edges that come with their faces stay with them. */
  setShown(items: readonly number[], isShown: boolean): void {
    const { model } = this.#store;
    const asked = new Set(items);
    for (const number of asked) {
      const item = model.items[number];
      if (!item) continue;
      const isWithFace = isEdgeOfFaces(item) && item.faces.some((face) => asked.has(face));
      this.#hand[number] = isWithFace ? Hand.none : isShown ? Hand.shown : Hand.hidden;
    }
    if (isShown && items.some((item) => !this.#isOnSide(item))) this.#store.set({ side: 'both' });
    else this.#show();
  }

  /** Hides all but these, and the edges of these. */
  showOnly(items: readonly number[]): void {
    this.#store.model.items.forEach((item, number) => {
      this.#hand[number] = isEdgeOfFaces(item) ? Hand.none : Hand.hidden;
    });
    this.setShown(items, true);
  }

  #isOnSide = (item: number): boolean => {
    const { side } = this.#store.state;
    return side === 'both' || this.#sides[item] === Sided.both || this.#sides[item] === Sided[side];
  };

  #show(): void {
    const shown = shownItems(this.#store.model, this.#passes, this.#hand, this.#isOnSide);
    this.#store.set({ shown });
  }
}

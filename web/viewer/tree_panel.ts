// The model as a tree. The children of a node are made when it is opened.
import type { Choice } from './choice.ts';
import { make, makeButton } from './dom.ts';
import { LongList } from './long_list.ts';
import type { ModelIndex } from './model_index.ts';
import type { Store } from './store.ts';
import type { Visibility } from './visibility.ts';
import { entityTitle, formatCount } from './words.ts';

export class TreePanel {
  readonly element = make('section', { class: 'panel' });
  readonly #store: Store;
  readonly #index: ModelIndex;
  readonly #visibility: Visibility;
  readonly #choice: Choice;
  /** Of each node, with all that is under it: how many items it has. */
  readonly #total: Uint32Array;
  #shown: Uint32Array;
  /** What brings the boxes up to date. */
  readonly #ticks: (() => void)[] = [];
  readonly #labels = new Map<number, HTMLElement>();
  readonly #leafLabels = new Map<number, HTMLElement>();
  #marked: HTMLElement[] = [];

  constructor(store: Store, index: ModelIndex, visibility: Visibility, choice: Choice) {
    this.#store = store;
    this.#index = index;
    this.#visibility = visibility;
    this.#choice = choice;
    this.#total = this.#countItems(() => true);
    this.#shown = this.#countItems((item) => store.state.shown[item] === 1);
    const { roots } = index;
    this.element.append(make('h2', { class: 'unseen' }, 'Model tree'));
    if (roots.length === 0) this.element.append(make('p', { class: 'empty' }, 'The model has no parts.'));
    else {
      const list = make('ul', { class: 'branches' });
      this.element.append(new LongList(list, roots.length, (row) => this.#makeNode(roots[row] ?? -1)).element);
    }
    if (roots.length === 1) this.element.querySelector<HTMLElement>('.opener')?.click();
    store.listen((_, change) => {
      if (change.shown) this.#refresh();
      if (change.chosen) this.#mark();
    });
  }

  #countItems(isCounted: (item: number) => boolean): Uint32Array {
    const { nodes, items } = this.#store.model;
    const counts = new Uint32Array(nodes.length);
    items.forEach((item, number) => {
      if (isCounted(number)) counts[item.node] = (counts[item.node] ?? 0) + 1;
    });
    // A node stands behind its parent.
    for (let node = nodes.length - 1; node > 0; --node) {
      const parent = nodes[node]?.parent ?? -1;
      counts[parent] = (counts[parent] ?? 0) + (counts[node] ?? 0);
    }
    return counts;
  }

  #makeList(node: number): HTMLElement {
    const children = this.#index.childrenOf(node);
    const leaves = [...this.#index.leavesOf(node)];
    const list = make('ul', { class: 'branches' });
    return new LongList(list, children.length + leaves.length, (row) => {
      const child = children[row];
      const leaf = leaves[row - children.length];
      if (child !== undefined) return this.#makeNode(child);
      return leaf ? this.#makeLeaf(node, ...leaf) : make('li');
    }).element;
  }

  #makeNode(node: number): HTMLElement {
    const label = this.#store.model.nodes[node]?.label || 'without a name';
    const total = this.#total[node] ?? 0;
    const hasMore = this.#index.childrenOf(node).length > 0 || this.#index.leavesOf(node).size > 0;
    const name = makeButton(label, () => this.#choice.branch(node), { class: 'node', title: label });
    if (hasMore) name.append(make('span', { class: 'where' }, ` ${formatCount(total)}`));
    this.#labels.set(node, name);
    const items = (): number[] => this.#index.itemsUnder(node);
    const box = total > 0 ? this.#makeBox(label, items, () => [this.#shown[node] ?? 0, total]) : null;
    const row = make('li');
    const opener = hasMore ? this.#makeOpener(label, row, node) : make('span', { class: 'opener' });
    row.append(make('div', { class: 'branch' }, opener, box, name));
    return row;
  }

  /** An entity that has no node of its own. */
  #makeLeaf(node: number, number: number, items: readonly number[]): HTMLElement {
    const entity = this.#store.model.entities[number];
    const title = entity ? entityTitle(entity) : 'without an entity';
    const label = entity?.name ? `${entity.name}, ${title}` : title;
    const name = makeButton(label, () => this.#choice.entity(number), { class: 'node', title: label });
    this.#leafLabels.set(this.#leafKey(node, number), name);
    const numShown = (): number => items.filter((item) => this.#store.state.shown[item] === 1).length;
    const box = this.#makeBox(
      label,
      () => items,
      () => [numShown(), items.length],
    );
    return make('li', {}, make('div', { class: 'branch' }, make('span', { class: 'opener' }), box, name));
  }

  #leafKey(node: number, entity: number): number {
    return node * this.#store.model.entities.length + entity;
  }

  #makeOpener(label: string, row: HTMLElement, node: number): HTMLElement {
    let list: HTMLElement | null = null;
    const opener = makeButton('', () => {
      const isOpen = opener.getAttribute('aria-expanded') === 'true';
      opener.setAttribute('aria-expanded', String(!isOpen));
      if (!list) row.append((list = this.#makeList(node)));
      list.hidden = isOpen;
      this.#mark();
    });
    opener.className = 'opener';
    opener.setAttribute('aria-expanded', 'false');
    opener.setAttribute('aria-label', `Parts of ${label}`);
    return opener;
  }

  /** `count` gives how many are shown, of how many. */
  #makeBox(label: string, items: () => readonly number[], count: () => readonly [number, number]): HTMLElement {
    const box = make('input', { type: 'checkbox', 'aria-label': `Show ${label}` });
    box.addEventListener('change', () => this.#visibility.setShown(items(), box.checked));
    const tick = (): void => {
      const [shown, total] = count();
      box.checked = shown > 0;
      box.indeterminate = shown > 0 && shown < total;
    };
    this.#ticks.push(tick);
    tick();
    return make('label', { class: 'tick' }, box);
  }

  #refresh(): void {
    const { shown } = this.#store.state;
    this.#shown = this.#countItems((item) => shown[item] === 1);
    for (const tick of this.#ticks) tick();
  }

  #mark(): void {
    for (const label of this.#marked) label.removeAttribute('aria-current');
    const { model, state } = this.#store;
    const marked = new Set<HTMLElement>();
    for (const number of state.chosen) {
      const { node, entity } = model.items[number] ?? { node: -1, entity: -1 };
      const label = this.#leafLabels.get(this.#leafKey(node, entity)) ?? this.#labels.get(node);
      if (label) marked.add(label);
    }
    this.#marked = [...marked];
    for (const label of this.#marked) label.setAttribute('aria-current', 'true');
  }
}

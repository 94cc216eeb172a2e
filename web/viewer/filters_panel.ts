// Shows and hides by level, colour, name, type and severity.
import { make, makeButton, makeCheckbox } from './dom.ts';
import { makeSwatch } from './details_panel.ts';
import { LongList } from './long_list.ts';
import { makeMark } from './marks.ts';
import type { ModelIndex } from './model_index.ts';
import type { Model, Severity } from './model.ts';
import type { Store } from './store.ts';
import type { Filters, Visibility } from './visibility.ts';
import { colourHex, count, formatCount, severities, severityWords } from './words.ts';

interface Value {
  readonly key: number;
  readonly label: string;
  readonly items: number;
  readonly mark: HTMLElement | null;
}

/** How many items have each key. */
function countBy(model: Model, keysOf: (item: Model['items'][number]) => readonly number[]): Map<number, number> {
  const counts = new Map<number, number>();
  for (const item of model.items) for (const key of keysOf(item)) counts.set(key, (counts.get(key) ?? 0) + 1);
  return counts;
}

function levelsOf(model: Model, index: ModelIndex): Value[] {
  const counts = countBy(model, (item) => model.entities[item.entity]?.levels ?? []);
  const sorted = [...counts].sort(([first], [second]) => first - second);
  return sorted.map(([key, items]) => {
    const title = index.levelTitle(key);
    return { key, items, label: key === 0 ? 'On no level' : `Level ${title}`, mark: null };
  });
}

function coloursOf(model: Model): Value[] {
  const names = new Map<number, string>();
  for (const item of model.items)
    if (!names.get(item.colour)) names.set(item.colour, model.entities[item.entity]?.colourName ?? '');
  const sorted = [...countBy(model, (item) => [item.colour])].sort(([, first], [, second]) => second - first);
  return sorted.map(([key, items]) => {
    const label = key < 0 ? 'None given' : names.get(key) || colourHex(key);
    return { key, items, label, mark: makeSwatch(key) };
  });
}

function typesOf(model: Model): Value[] {
  const typeOf = (item: Model['items'][number]): number => model.entities[item.entity]?.type ?? 0;
  const names = new Map(model.entities.map((entity) => [entity.type, entity.typeName]));
  const sorted = [...countBy(model, (item) => [typeOf(item)])].sort(([first], [second]) => first - second);
  return sorted.map(([key, items]) => ({ key, items, label: `${key} ${names.get(key) ?? ''}`, mark: null }));
}

export class FiltersPanel {
  readonly element = make('section', { class: 'panel filters' });
  readonly #store: Store;
  readonly #visibility: Visibility;
  /** What brings the controls up to date. */
  readonly #refreshers: ((filters: Filters) => void)[] = [];

  constructor(store: Store, index: ModelIndex, visibility: Visibility) {
    const { model } = store;
    this.#store = store;
    this.#visibility = visibility;
    this.element.append(
      make('h2', { class: 'unseen' }, 'Show and hide'),
      this.#makeButtons(),
      this.#makeSearch(),
      this.#makeOff(),
      this.#makeSeverities(),
      this.#makeGroup('Types', 'types', typesOf(model)),
      this.#makeGroup('Levels', 'levels', levelsOf(model, index)),
      this.#makeGroup('Colours', 'colours', coloursOf(model)),
    );
    const refresh = (): void => this.#refreshers.forEach((one) => one(visibility.filters));
    visibility.listen(refresh);
    refresh();
  }

  #makeButtons(): HTMLElement {
    const chosen = (): readonly number[] => this.#store.state.chosen;
    const only = makeButton('Only what is chosen', () => this.#visibility.showOnly(chosen()));
    const hide = makeButton('Hide what is chosen', () => this.#visibility.setShown(chosen(), false));
    const tally = make('p', { class: 'small' });
    const refresh = (): void => {
      only.disabled = hide.disabled = chosen().length === 0;
      const shown = this.#store.state.shown.reduce((sum, one) => sum + one, 0);
      const { length } = this.#store.model.items;
      tally.textContent = `${formatCount(shown)} of ${count(length, 'part')} shown`;
    };
    this.#store.listen((_, change) => {
      if (change.chosen || change.shown) refresh();
    });
    refresh();
    const buttons = [makeButton('Show all', () => this.#visibility.showAll()), only, hide];
    return make('div', {}, make('div', { class: 'buttons' }, ...buttons), tally);
  }

  #makeSearch(): HTMLElement {
    const input = make('input', { type: 'search', autocomplete: 'off', spellcheck: 'false' });
    let timer = 0;
    input.addEventListener('input', () => {
      clearTimeout(timer);
      timer = setTimeout(() => this.#visibility.filter({ name: input.value }), 150);
    });
    this.#refreshers.push(({ name }) => {
      if (input.value !== name) input.value = name;
    });
    return make('label', { class: 'field' }, 'Name contains', input);
  }

  #makeOff(): HTMLElement {
    const number = this.#store.model.items.filter((item) => item.off).length;
    if (number === 0) return make('p', { class: 'small' }, 'The file hides nothing.');
    const label = `Hidden (blanked) entities, ${count(number, 'part')}`;
    const { row, input } = makeCheckbox((withOff) => this.#visibility.filter({ withOff }), label);
    this.#refreshers.push(({ withOff }) => (input.checked = withOff));
    return row;
  }

  #makeSeverities(): HTMLElement {
    const group = make('fieldset', {}, make('legend', {}, 'Only with'));
    for (const severity of severities) {
      const toggle = (isOn: boolean): void => this.#visibility.filter({ severities: this.#with(severity, isOn) });
      const { row, input } = makeCheckbox(toggle, makeMark(severity), `${severityWords[severity].toLowerCase()}s`);
      this.#refreshers.push((filters) => (input.checked = filters.severities.has(severity)));
      group.append(row);
    }
    return group;
  }

  #with(severity: Severity, isOn: boolean): ReadonlySet<Severity> {
    const changed = new Set(this.#visibility.filters.severities);
    if (isOn) changed.add(severity);
    else changed.delete(severity);
    return changed;
  }

  #makeGroup(title: string, filter: 'levels' | 'colours' | 'types', values: readonly Value[]): HTMLElement {
    const set = (hidden: ReadonlySet<number>): void => this.#visibility.filter({ [filter]: hidden });
    const inputs = new Map<number, HTMLInputElement>();
    const refresh = (filters: Filters): void => {
      for (const [key, input] of inputs) input.checked = !filters[filter].has(key);
    };
    this.#refreshers.push(refresh);
    const list = make('ul', { class: 'rows' });
    new LongList(list, values.length, (row) => {
      const { key, label, items, mark } = values[row] ?? { key: 0, label: '', items: 0, mark: null };
      const toggle = (isOn: boolean): void => {
        const hidden = new Set(this.#visibility.filters[filter]);
        if (isOn) hidden.delete(key);
        else hidden.add(key);
        set(hidden);
      };
      const number = make('span', { class: 'where' }, formatCount(items));
      const box = makeCheckbox(toggle, mark, make('span', { class: 'label' }, label), number);
      box.input.checked = !this.#visibility.filters[filter].has(key);
      inputs.set(key, box.input);
      return make('li', {}, box.row);
    });
    const name = title.toLowerCase();
    const all = makeButton('All', () => set(new Set()), { 'aria-label': `All ${name}` });
    const none = makeButton('None', () => set(new Set(values.map(({ key }) => key))), {
      'aria-label': `None of the ${name}`,
    });
    const summary = make('summary', {}, `${title} (${formatCount(values.length)})`);
    return make('details', { open: values.length <= 12 }, summary, make('div', { class: 'buttons' }, all, none), list);
  }
}

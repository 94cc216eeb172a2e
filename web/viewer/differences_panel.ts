// What is not the same in the old file and the new one.
import type { Choice } from './choice.ts';
import { make, makeButton } from './dom.ts';
import { LongList } from './long_list.ts';
import { makeMark } from './marks.ts';
import type { Change, Difference, Model } from './model.ts';
import type { Store } from './store.ts';
import { changeWords, count, entityTitle } from './words.ts';

export class DifferencesPanel {
  readonly element = make('section', { class: 'panel' });
  readonly #model: Model;
  readonly #choice: Choice;
  readonly #buttons = new Map<number, HTMLElement>();
  #marked: HTMLElement | undefined;

  constructor(store: Store, choice: Choice) {
    this.#model = store.model;
    this.#choice = choice;
    const { differences, oldTitle, title } = store.model;
    const files = make('dl', { class: 'facts' });
    files.append(make('dt', {}, 'Old'), make('dd', {}, oldTitle), make('dt', {}, 'New'), make('dd', {}, title));
    this.element.append(make('h2', { class: 'unseen' }, 'Changes'), make('div', { class: 'summary' }, files));
    if (differences.length === 0) {
      this.element.append(make('p', { class: 'praise' }, 'Both files have the same content.'));
      return;
    }
    const list = make('ul', { class: 'rows' });
    new LongList(list, differences.length, (row) => make('li', {}, this.#makeRow(row)));
    this.element.append(this.#makeTally(), list);
    store.listen((state, change) => {
      if (change.difference === undefined) return;
      this.#marked?.removeAttribute('aria-current');
      this.#marked = this.#buttons.get(state.difference);
      this.#marked?.setAttribute('aria-current', 'true');
    });
  }

  #makeTally(): HTMLElement {
    const tally = make('ul', { class: 'tally', 'aria-label': 'Changes by kind' });
    for (const kind of ['changed', 'added', 'removed'] satisfies Change[]) {
      const number = this.#model.differences.filter(({ change }) => change === kind).length;
      tally.append(make('li', {}, makeMark(kind), count(number, kind, kind)));
    }
    return tally;
  }

  #makeRow(number: number): HTMLElement {
    const difference = this.#model.differences[number];
    const button = makeButton('', () => this.#choice.difference(number), { class: 'row' });
    this.#buttons.set(number, button);
    if (!difference) return button;
    const { change, oldEntity, newEntity } = difference;
    const entity = this.#model.entities[newEntity < 0 ? oldEntity : newEntity];
    const title = entity ? [entity.name, entityTitle(entity)].filter((text) => text !== '').join(' · ') : '';
    const word = make('b', {}, `${changeWords[change]}: `);
    button.append(makeMark(change), make('span', { class: 'sentence' }, word, title), this.#makeValues(difference));
    return button;
  }

  /** The first values; the details have all. */
  #makeValues({ fields }: Difference): HTMLElement {
    const values = make('span', { class: 'where' });
    for (const [label, before, after] of fields.slice(0, 3))
      values.append(make('span', { class: 'value' }, `${label}: ${before} → ${after}`));
    if (fields.length > 3)
      values.append(make('span', { class: 'value' }, `… ${count(fields.length - 3, 'value')} more`));
    return values;
  }
}

// What every class of faults means. The address #explain=CLASS leads here.
import { make } from '../viewer/dom.ts';
import { LongList } from '../viewer/long_list.ts';
import { makeMark } from '../viewer/marks.ts';
import { count } from '../viewer/words.ts';
import { addressOf, type Explained, familyOf, readClasses, readTerms } from './explanations.ts';
import type { Workshop } from './workshop.ts';

function makeRow({ name, severity, worst, sentence, isRepaired }: Explained): HTMLElement {
  const link = make('a', { class: 'row', href: addressOf(name) }, makeMark(worst));
  const words = make('span', { class: 'sentence' }, make('span', { class: 'unseen' }, `${severity}: `), sentence);
  link.append(words, make('span', { class: 'where' }, isRepaired ? `${name} · can be repaired` : name));
  return make('li', {}, link);
}

export class ExplainPanel {
  readonly element = make('section', { class: 'explain' });
  readonly #workshop: Workshop;
  readonly #one = make('article', { class: 'explained', tabindex: -1, hidden: true });
  readonly #search = make('input', { type: 'search', autocomplete: 'off', spellcheck: 'false' });
  readonly #found = make('p', { class: 'small', role: 'status' });
  readonly #list = make('div');
  #classes: readonly Explained[] = [];
  /** The class that was asked for last. */
  #asked = '';

  constructor(workshop: Workshop) {
    this.#workshop = workshop;
    const title = make('h2', {}, 'What faults mean');
    const field = make('label', { class: 'search' }, make('span', { class: 'small' }, 'Find a fault'), this.#search);
    this.element.append(title, this.#one, make('div', { class: 'filters-bar' }, field, this.#found), this.#list);
    this.#search.addEventListener('input', () => this.#fill());
    void this.#load();
  }

  /** Explains a class above the list, and goes there. */
  async explain(name: string): Promise<void> {
    this.#asked = name;
    const text = await this.#textOf(name);
    if (this.#asked !== name) return;
    const terms = readTerms(text).flatMap(([term, words]) => [make('dt', {}, term), make('dd', {}, words)]);
    const about = terms.length > 0 ? make('dl', { class: 'facts' }, ...terms) : make('p', {}, text);
    this.#one.replaceChildren(make('h3', {}, name === '' ? 'No such fault' : name), about);
    this.#one.hidden = false;
    this.#one.focus();
    this.#one.scrollIntoView({ block: 'nearest' });
  }

  async #textOf(name: string): Promise<string> {
    if (name === '') return 'The address of this page names no class of faults.';
    try {
      return (await this.#workshop.explain(name)).trim() || `There is no class of the name ${name}.`;
    } catch (error) {
      return error instanceof Error ? error.message : String(error);
    }
  }

  async #load(): Promise<void> {
    try {
      this.#classes = readClasses(await this.#workshop.explain());
      this.#fill();
    } catch (error) {
      this.#found.textContent = error instanceof Error ? error.message : String(error);
    }
  }

  #fill(): void {
    const wanted = this.#search.value.trim().toLowerCase();
    const found = this.#classes.filter(({ name, sentence }) => `${name}\n${sentence}`.toLowerCase().includes(wanted));
    const families = new Map<string, Explained[]>();
    for (const each of found) {
      const family = familyOf(each.name);
      const others = families.get(family);
      if (others) others.push(each);
      else families.set(family, [each]);
    }
    this.#found.textContent = count(found.length, 'class', 'classes');
    this.#list.replaceChildren(
      ...[...families].map(([family, classes]) => this.#makeFamily(family, classes, wanted !== '')),
    );
  }

  /** Its rows are made when it is opened. */
  #makeFamily(title: string, classes: readonly Explained[], isOpen: boolean): HTMLElement {
    const list = make('ul', { class: 'rows' });
    const summary = make('summary', {}, title, make('span', { class: 'where' }, ` ${classes.length}`));
    const family = make('details', { class: 'family', open: isOpen }, summary, list);
    const fill = (): void => {
      if (!family.open || list.hasChildNodes()) return;
      new LongList(list, classes.length, (row) => (classes[row] ? makeRow(classes[row]) : make('li')));
    };
    family.addEventListener('toggle', fill);
    fill();
    return family;
  }
}

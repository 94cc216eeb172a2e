// What there is to know of what was chosen.
import type { Choice } from './choice.ts';
import { make, makeButton } from './dom.ts';
import { LongList } from './long_list.ts';
import { makeMark } from './marks.ts';
import type { ModelIndex } from './model_index.ts';
import type { Difference, Entity, Finding } from './model.ts';
import type { Store } from './store.ts';
import { changeWords, colourHex, count, kindWords, severityWords } from './words.ts';

export function makeSwatch(colour: number): HTMLElement {
  const swatch = make('span', { class: 'swatch', 'aria-hidden': 'true' });
  if (colour >= 0) swatch.style.backgroundColor = colourHex(colour);
  else swatch.classList.add('none');
  return swatch;
}

export class DetailsPanel {
  readonly element = make('section', { class: 'panel details', tabindex: 0 });
  readonly #body = make('div');
  readonly #store: Store;
  readonly #index: ModelIndex;
  readonly #choice: Choice;

  constructor(store: Store, index: ModelIndex, choice: Choice) {
    this.#store = store;
    this.#index = index;
    this.#choice = choice;
    this.element.append(make('h2', {}, 'Details'), this.#body);
    this.#fill();
    store.listen((_, change) => {
      if (change.chosen) this.#fill();
    });
  }

  #fill(): void {
    const { model, state } = this.#store;
    const entity = model.entities[state.entity];
    const finding = model.findings[state.finding];
    const parts: (Node | null)[] = [];
    if (finding && !entity) parts.push(this.#makeFinding(finding));
    if (entity) parts.push(...this.#describe(entity, state.entity));
    else if (state.chosen.length > 0) parts.push(make('p', {}, `${count(state.chosen.length, 'part')} chosen.`));
    else if (!finding) parts.push(make('p', { class: 'empty' }, 'Choose a face, a curve or a finding.'));
    this.#body.replaceChildren(...parts.filter((part) => part !== null));
    this.element.scrollTop = 0;
  }

  #describe(entity: Entity, number: number): (Node | null)[] {
    const difference = this.#store.model.differences[this.#index.differenceOfEntity(number)];
    const title = make('h3', { class: 'title' }, entity.name || entity.typeName || `Type ${entity.type}`);
    return [
      title,
      this.#makeFacts(entity),
      this.#makeFindings(number),
      difference ? this.#makeDifference(difference) : null,
      this.#makeFields(entity),
    ];
  }

  #makeFacts(entity: Entity): HTMLElement {
    const { model, state } = this.#store;
    const items = state.chosen.flatMap((item) => model.items[item] ?? []);
    const first = items[0];
    const list = make('dl', { class: 'facts' });
    const add = (term: string, ...value: (Node | string)[]): void => {
      list.append(make('dt', {}, term), make('dd', {}, ...value));
    };
    if (entity.old) add('File', `the old one, ${model.oldTitle}`);
    add('Type', `${entity.type} ${entity.typeName}, form ${entity.form}`);
    add('DE', String(entity.de));
    if (entity.line > 0) add('Line', String(entity.line));
    if (entity.name !== '') add('Name', entity.name);
    add('Levels', entity.levels.map((level) => this.#index.levelTitle(level)).join(', ') || 'no level');
    if (first) {
      const hex = first.colour < 0 ? 'none given' : colourHex(first.colour);
      const words = entity.colourName === '' ? hex : `${entity.colourName} (${hex})`;
      add('Colour', makeSwatch(first.colour), words);
      const path = this.#index.pathOf(first.node);
      if (path.length > 0) add('In', path.join(' › '));
      const kinds = [...new Set(items.map((item) => kindWords[item.kind]))].join(', ');
      add('Picture', items.length === 1 ? kinds : `${count(items.length, 'part')}: ${kinds}`);
      if (first.off) add('Hidden', 'not shown at first, as the file has it');
    } else add('Picture', 'nothing of it is drawn');
    return list;
  }

  #makeFinding(finding: Finding): HTMLElement {
    const { severity, message, place, className } = finding;
    const sentence = make('p', { class: 'row' }, makeMark(severity));
    const word = make('b', {}, `${severityWords[severity]}: `);
    sentence.append(make('span', { class: 'sentence' }, word, message));
    sentence.append(make('span', { class: 'where' }, `${place} · ${className}`));
    return sentence;
  }

  #makeFindings(entity: number): HTMLElement | null {
    const { model, state } = this.#store;
    const own = this.#index.findingsOfEntity(entity);
    if (own.length === 0) return null;
    const list = make('ul', { class: 'rows' });
    new LongList(list, own.length, (row) => {
      const number = own[row] ?? -1;
      const finding = model.findings[number];
      const button = makeButton('', () => this.#choice.finding(number), { class: 'row' });
      if (number === state.finding) button.setAttribute('aria-current', 'true');
      if (finding) {
        const word = make('b', {}, `${severityWords[finding.severity]}: `);
        button.append(makeMark(finding.severity), make('span', { class: 'sentence' }, word, finding.message));
      }
      return make('li', {}, button);
    });
    return make('section', {}, make('h3', {}, count(own.length, 'finding')), list);
  }

  #makeDifference(difference: Difference): HTMLElement {
    const title = make('h3', {}, makeMark(difference.change), changeWords[difference.change]);
    const section = make('section', {}, title);
    if (difference.fields.length === 0) return section;
    section.append(makeTable(['Field', 'Old', 'New'], difference.fields));
    return section;
  }

  #makeFields(entity: Entity): HTMLElement | null {
    if (entity.fields.length === 0 && entity.fieldsLeftOut === 0) return null;
    const section = make('section', {}, make('h3', {}, 'Fields'), makeTable(['Field', 'Value'], entity.fields));
    if (entity.fieldsLeftOut > 0) section.append(make('p', { class: 'small' }, `… ${entity.fieldsLeftOut} more`));
    return section;
  }
}

function makeTable(titles: readonly string[], rows: readonly (readonly string[])[]): HTMLElement {
  const head = make('tr', {}, ...titles.map((title) => make('th', { scope: 'col' }, title)));
  const body = make('tbody');
  new LongList(body, rows.length, (row) => {
    const [label = '', ...values] = rows[row] ?? [];
    const cells = values.map((value) => make('td', {}, value));
    return make('tr', {}, make('th', { scope: 'row' }, label), ...cells);
  });
  return make('table', {}, make('thead', {}, head), body);
}

// The files that were dropped. One of them is shown; the arrow keys go from one to the next.
import { make, makeButton } from '../viewer/dom.ts';
import { LongList } from '../viewer/long_list.ts';
import { count } from '../viewer/words.ts';
import type { Part, Session, SessionState } from './session.ts';
import { makeCounts } from './words.ts';

function makeState(part: Part): Node {
  if (part.report) return makeCounts(part.report);
  if (part.failure !== '') return make('span', { class: 'where failed' }, part.failure);
  return make('span', { class: 'where' }, `${part.doing || 'Waiting'} …`);
}

export class FilesPanel {
  readonly element = make('section', { class: 'files', 'aria-labelledby': 'files-title' });
  /** For the button that adds files. */
  readonly place: HTMLElement;
  readonly #session: Session;
  readonly #title = make('h2', { id: 'files-title' });
  readonly #clear: HTMLButtonElement;
  readonly #list = make('ul', { class: 'rows' });
  #rows: LongList | null = null;
  #buttons = new Map<number, HTMLButtonElement>();

  constructor(session: Session) {
    this.#session = session;
    this.#clear = makeButton('Remove all', () => session.clear());
    this.place = make('div', { class: 'buttons' }, this.#clear);
    this.element.append(make('div', { class: 'desk-heading' }, this.#title, this.place), this.#list);
    this.#list.addEventListener('keydown', (event) => this.#onKey(event));
    session.listen((state, before) => this.#show(state, before));
  }

  /** Goes to the file that is shown. */
  focus(): void {
    this.#buttons.get(this.#session.state.chosen)?.focus();
  }

  #show(state: SessionState, before: SessionState): void {
    const { parts, chosen } = state;
    const isSame = parts.length === before.parts.length && parts.every(({ id }, i) => id === before.parts[i]?.id);
    if (isSame) {
      parts.forEach((part, i) => {
        if (part !== before.parts[i]) this.#fill(part);
      });
    } else {
      this.#clear.hidden = parts.length < 2;
      this.#title.textContent = count(parts.length, 'file');
      this.#list.replaceChildren();
      this.#buttons = new Map();
      this.#rows = new LongList(this.#list, parts.length, (row) => this.#makeRow(row));
    }
    if (!isSame || chosen !== before.chosen) this.#mark(before.chosen, chosen);
  }

  #makeRow(row: number): HTMLElement {
    const part = this.#session.state.parts[row];
    if (!part) return make('li');
    const { id } = part;
    const button = makeButton('', () => this.#session.choose(id), { class: 'file', tabindex: -1 });
    this.#buttons.set(id, button);
    this.#fill(part);
    return make('li', {}, button);
  }

  #fill(part: Part): void {
    const name = make('span', { class: 'name', title: part.source.name }, part.source.name);
    this.#buttons.get(part.id)?.replaceChildren(name, makeState(part));
  }

  /** Of all files the one that is shown is reached by the tabulator. */
  #mark(before: number, chosen: number): void {
    const old = this.#buttons.get(before);
    old?.removeAttribute('aria-current');
    if (old) old.tabIndex = -1;
    this.#rows?.reach(this.#session.state.parts.findIndex(({ id }) => id === chosen));
    const button = this.#buttons.get(chosen);
    if (!button) return;
    button.setAttribute('aria-current', 'true');
    button.tabIndex = 0;
    button.scrollIntoView({ block: 'nearest' });
  }

  #onKey(event: KeyboardEvent): void {
    const { parts, chosen } = this.#session.state;
    const at = parts.findIndex(({ id }) => id === chosen);
    const goals: Record<string, number> = { ArrowUp: at - 1, ArrowDown: at + 1, Home: 0, End: parts.length - 1 };
    if (event.key === 'Delete') this.#session.remove(chosen);
    const goal = parts[goals[event.key] ?? -1];
    if (!goal) return;
    event.preventDefault();
    this.#session.choose(goal.id);
    this.focus();
  }
}

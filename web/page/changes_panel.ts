// What the repair changed: entity by entity, and as a picture of before and after.
import type { Difference, Differences, FieldValue } from '../module/types.ts';
import { make, makeButton } from '../viewer/dom.ts';
import { LongList } from '../viewer/long_list.ts';
import { makeMark } from '../viewer/marks.ts';
import { count } from '../viewer/words.ts';
import type { Part, Session } from './session.ts';
import { makeScrollBox } from './scroll_box.ts';
import { isDrawnUnasked, ViewerFrame, warningOf, whenSeen } from './viewer_frame.ts';

const entities = (number: number, change: string): string => `${count(number, 'entity', 'entities')} ${change}`;

function tallyOf(summary: Differences): string[] {
  const { changed, removed, added, global, start, dropped } = summary;
  const words: string[] = [];
  if (changed > 0) words.push(entities(changed, 'changed'));
  if (removed > 0) words.push(entities(removed, 'removed'));
  if (added > 0) words.push(entities(added, 'added'));
  if (global > 0) words.push(count(global, 'Global parameter'));
  if (start > 0) words.push(count(start, 'Start line'));
  if (dropped > 0) words.push(`${count(dropped, 'kind')} of entities that could not be read`);
  return words;
}

const parts: Partial<Record<Difference['change'], string>> = {
  global: 'Global section',
  start: 'Start section',
  dropped: 'What could not be read, by kinds',
};

/** What was changed: the same for all changes of one entity, which follow each other. */
function titleOf({ change, type, old_de: oldDe, new_de: newDe }: Difference): string {
  const part = parts[change];
  if (part !== undefined) return part;
  const moved = oldDe !== undefined && newDe !== undefined && oldDe !== newDe ? `, now DE ${newDe}` : '';
  return `Type ${type ?? 'unknown'} (DE ${oldDe ?? newDe ?? 'unknown'}${moved})`;
}

function groupsOf(changes: readonly Difference[]): Difference[][] {
  const groups: Difference[][] = [];
  let last = '';
  for (const change of changes) {
    const key = `${change.change} ${titleOf(change)}`;
    if (key === last) groups.at(-1)?.push(change);
    else groups.push([change]);
    last = key;
  }
  return groups;
}

function inWords(value: FieldValue | undefined): string {
  if (value === null || value === undefined) return 'not set';
  return typeof value === 'object' ? `DE ${value.de}` : String(value);
}

function makeValue({ change, field = '', old, new: now }: Difference): HTMLElement {
  const none = change === 'dropped' ? 0 : undefined;
  return make('span', { class: 'value' }, `${field}: ${inWords(old ?? none)} → ${inWords(now ?? none)}`);
}

const marks = {
  changed: 'changed',
  global: 'changed',
  start: 'changed',
  removed: 'removed',
  dropped: 'changed',
  added: 'added',
} as const;
const words = { changed: 'Changed', removed: 'Removed', added: 'Added' } as const;

/** Of one entity. */
const mostValues = 20;

function makeGroup(group: readonly Difference[]): HTMLElement {
  const [first] = group;
  if (!first) return make('li');
  const mark = marks[first.change];
  const row = make('li', { class: 'row' }, makeMark(mark));
  row.append(make('span', { class: 'sentence' }, make('b', {}, `${words[mark]}: `), titleOf(first)));
  const changes = group.filter(({ field }) => field !== undefined);
  const values = changes.slice(0, mostValues).map(makeValue);
  if (changes.length > mostValues)
    values.push(make('span', { class: 'value' }, `… ${count(changes.length - mostValues, 'value')} more`));
  if (values.length > 0) row.append(make('span', { class: 'where' }, ...values));
  return row;
}

export class ChangesPanel {
  readonly element = make('section', { class: 'panel changes-panel' });
  readonly #session: Session;
  readonly #list = make('div', { class: 'changes' });
  readonly #note = make('p', { class: 'empty', role: 'status' });
  readonly #compare = makeButton('Compare', () => void this.#session.compare(this.#session.state.chosen));
  readonly #frame: ViewerFrame;

  constructor(session: Session) {
    this.#session = session;
    this.#frame = new ViewerFrame(session, false, (reason) => (this.#note.textContent = reason));
    const offer = make('div', { class: 'offer' }, this.#note, this.#compare);
    this.element.append(make('h2', { class: 'unseen' }, 'Changes'), this.#list, offer, this.#frame.element);
    let before: Part | null = null;
    session.listen(() => {
      const { part } = session;
      if (part === before) return;
      if (part?.repair !== before?.repair) this.#list.replaceChildren(...makeChanges(part?.repair?.summary));
      before = part;
      this.#show(part);
    });
    this.#show(null);
    whenSeen(this.element, () => this.#show(session.part));
  }

  #show(part: Part | null): void {
    const isSeen = this.element.clientWidth > 0;
    const isAwaited = part?.jobs.includes('comparison') ?? false;
    const isMissing = part !== null && hasChanged(part) && !part.comparison && !isAwaited;
    if (isMissing && isSeen && !part.failures.comparison && isDrawnUnasked(part.source)) {
      return void this.#session.compare(part.id);
    }
    if (!part?.comparison) this.#frame.show(null);
    else if (isSeen) this.#frame.show(part.comparison.model);
    this.#compare.hidden = !isMissing;
    if (isMissing) this.#note.textContent = part.failures.comparison || warningOf(part.source);
    else this.#note.textContent = isAwaited ? 'Comparing …' : this.#noteOf(part);
  }

  #noteOf(part: Part | null): string {
    if (part?.repair) return part.repair.bytes ? '' : 'Nothing was written, so nothing has changed.';
    return part ? 'After a repair this shows what it has changed.' : '';
  }
}

/** Changes of entities: nothing else is to be seen. */
function hasChanged({ repair }: Part): boolean {
  const summary = repair?.summary;
  return summary ? summary.changed + summary.removed + summary.added > 0 : false;
}

function makeChanges(summary: Differences | null | undefined): HTMLElement[] {
  if (!summary) return [];
  if (summary.same) return [make('p', { class: 'praise' }, 'Nothing but bookkeeping was changed.')];
  const tally = make('ul', { class: 'tally', 'aria-label': 'What was changed' });
  for (const sentence of tallyOf(summary)) tally.append(make('li', {}, sentence));
  const list = make('ul', { class: 'rows' });
  const groups = groupsOf(summary.changes);
  new LongList(list, groups.length, (row) => makeGroup(groups[row] ?? []));
  const changes = make('details', { open: true }, make('summary', {}, 'One by one'));
  changes.append(makeScrollBox('List of changes', list));
  return [tally, changes];
}

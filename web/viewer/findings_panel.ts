// The findings, the worst first; equal ones collapsed.
import type { Choice } from './choice.ts';
import { make, makeButton, makeCheckbox } from './dom.ts';
import { LongList } from './long_list.ts';
import { makeMark } from './marks.ts';
import type { Finding, Severity } from './model.ts';
import type { Store } from './store.ts';
import { count, formatCount, severities, severityWords } from './words.ts';

/** Findings of one class with one sentence but for its numbers, as the list has them: the worst first. */
export function groupFindings(findings: readonly Finding[], withConsequences: boolean): number[][] {
  const groups = new Map<string, number[]>();
  findings.forEach((finding, number) => {
    if (finding.consequence && !withConsequences) return;
    const sentence = finding.message.replace(/[-+]?\d+(\.\d*)?([eE][-+]?\d+)?/g, '#');
    const key = [finding.severity, finding.consequence, finding.className, sentence].join('\n');
    const group = groups.get(key);
    if (group) group.push(number);
    else groups.set(key, [number]);
  });
  return [...groups.values()];
}

interface Place {
  readonly list: LongList;
  readonly row: number;
  /** Of the group in which it stands, if it has others. */
  readonly open: (() => LongList) | null;
  readonly inGroup: number;
}

export class FindingsPanel {
  readonly element = make('section', { class: 'panel' });
  readonly #store: Store;
  readonly #choice: Choice;
  readonly #lists = make('div');
  #order: number[] = [];
  #places = new Map<number, Place>();
  #buttons = new Map<number, HTMLElement>();
  #marked: HTMLElement | null = null;

  constructor(store: Store, choice: Choice) {
    this.#store = store;
    this.#choice = choice;
    this.element.append(make('h2', { class: 'unseen' }, 'Findings'), this.#makeSummary(), this.#lists);
    this.#fill(false);
    store.listen((_, change) => {
      if (change.finding !== undefined) this.#mark();
    });
  }

  /** Chooses the next finding of the list, or the one before. */
  step(by: 1 | -1): void {
    const at = this.#order.indexOf(this.#store.state.finding);
    const next = at < 0 ? (by > 0 ? 0 : this.#order.length - 1) : at + by;
    const finding = this.#order[next];
    if (finding !== undefined) this.#choice.finding(finding);
  }

  #makeSummary(): HTMLElement {
    const { findings, counts } = this.#store.model;
    const total = counts.reduce((sum, one) => sum + one, 0);
    if (total === 0 && findings.length === 0) {
      const praise = make('p', { class: 'praise' }, 'No faults were found. The file is sound.');
      return make('div', { class: 'summary' }, praise);
    }
    const summary = make('div', { class: 'summary' });
    const tally = make('ul', { class: 'tally', 'aria-label': 'Findings by severity' });
    severities.forEach((severity, place) => {
      const words = count(counts[place] ?? 0, severityWords[severity].toLowerCase());
      tally.append(make('li', {}, makeMark(severity), words));
    });
    summary.append(tally);
    if (findings.length < total) {
      const text = `The worst ${formatCount(findings.length)} of ${formatCount(total)} findings are listed.`;
      summary.append(make('p', { class: 'small' }, text));
    }
    const consequences = findings.filter((finding) => finding.consequence).length;
    if (consequences > 0) {
      const label = `With ${count(consequences, 'consequence')} of others`;
      summary.append(makeCheckbox((isOn) => this.#fill(isOn), label).row);
    }
    return summary;
  }

  #fill(withConsequences: boolean): void {
    const { findings } = this.#store.model;
    this.#places = new Map();
    this.#buttons = new Map();
    const groups = groupFindings(findings, withConsequences);
    this.#order = groups.flat();
    const sections = severities.flatMap((severity) => {
      const own = groups.filter((group) => findings[group[0] ?? -1]?.severity === severity);
      return own.length === 0 ? [] : [this.#makeSection(severity, own)];
    });
    this.#lists.replaceChildren(...sections);
    this.#mark();
  }

  #makeSection(severity: Severity, groups: readonly number[][]): HTMLElement {
    const title = make('h3', {}, makeMark(severity), `${severityWords[severity]}s`);
    const element = make('ul', { class: 'rows' });
    const openers = new Map<number, () => LongList>();
    const list: LongList = new LongList(element, groups.length, (row) => {
      const group = groups[row] ?? [];
      if (group.length === 1) return make('li', {}, this.#makeRow(group[0] ?? -1));
      const { row: made, open } = this.#makeGroup(group);
      openers.set(row, open);
      return made;
    });
    groups.forEach((group, row) => {
      const open = group.length === 1 ? null : () => openers.get(row)?.() ?? list;
      group.forEach((finding, inGroup) => this.#places.set(finding, { list, row, open, inGroup }));
    });
    return make('section', {}, title, element);
  }

  #makeRow(number: number): HTMLElement {
    const finding = this.#store.model.findings[number];
    if (!finding) return make('span');
    const { severity, message, place, line, className, consequence } = finding;
    const where = [place, ...(line > 0 ? [`line ${line}`] : []), className].join(' · ');
    const button = makeButton('', () => this.#choice.finding(number), {
      class: consequence ? 'row consequence' : 'row',
      'data-finding': number,
    });
    const word = consequence ? `${severityWords[severity]}, a consequence` : severityWords[severity];
    button.append(
      makeMark(severity),
      make('span', { class: 'sentence' }, make('span', { class: 'unseen' }, `${word}: `), message),
      make('span', { class: 'where' }, where),
    );
    this.#buttons.set(number, button);
    return button;
  }

  #makeGroup(group: readonly number[]): { readonly row: HTMLElement; readonly open: () => LongList } {
    const first = this.#store.model.findings[group[0] ?? -1];
    const list = make('ul', { class: 'rows', hidden: true });
    const button = makeButton('', () => (list.hidden ? open() : close()), { class: 'row', 'aria-expanded': 'false' });
    button.append(
      make('span', { class: 'badge' }, `${formatCount(group.length)} ×`),
      make('span', { class: 'sentence' }, `${first?.message ?? ''}, and the like`),
      make('span', { class: 'where' }, first?.className ?? ''),
    );
    let rows: LongList | null = null;
    const open = (): LongList => {
      rows ??= new LongList(list, group.length, (row) => make('li', {}, this.#makeRow(group[row] ?? -1)));
      list.hidden = false;
      button.setAttribute('aria-expanded', 'true');
      return rows;
    };
    const close = (): void => {
      list.hidden = true;
      button.setAttribute('aria-expanded', 'false');
    };
    return { row: make('li', { class: 'group' }, button, list), open };
  }

  #mark(): void {
    const { finding } = this.#store.state;
    this.#marked?.removeAttribute('aria-current');
    const place = this.#places.get(finding);
    place?.list.reach(place.row);
    place?.open?.().reach(place.inGroup);
    this.#marked = this.#buttons.get(finding) ?? null;
    this.#marked?.setAttribute('aria-current', 'true');
    this.#marked?.scrollIntoView({ block: 'nearest' });
  }
}

// Findings in lists by severity, the worst first; equal ones collapsed. What a finding's choice means is for others.
import { make, makeButton } from './dom.ts';
import { LongList } from './long_list.ts';
import { makeMark } from './marks.ts';
import type { Severity } from './model.ts';
import { count, formatCount, severities, severityWords } from './words.ts';

/** What is said of a finding, whoever has found it. */
export interface ListedFinding {
  readonly severity: Severity;
  readonly className: string;
  readonly message: string;
  readonly consequence: boolean;
}

/** Findings of one class with one sentence but for its numbers, as the list has them: the worst first. */
export function groupFindings(
  findings: readonly ListedFinding[],
  accepts: (finding: ListedFinding, number: number) => boolean,
): number[][] {
  const groups = new Map<string, number[]>();
  findings.forEach((finding, number) => {
    if (!accepts(finding, number)) return;
    const sentence = finding.message.replace(/[-+]?\d+(\.\d*)?([eE][-+]?\d+)?/g, '#');
    const key = [finding.severity, finding.consequence, finding.className, sentence].join('\n');
    const group = groups.get(key);
    if (group) group.push(number);
    else groups.set(key, [number]);
  });
  return [...groups.values()];
}

/** How many there are of each severity, in words. */
export function makeTally(counts: readonly number[]): HTMLElement {
  const words = severities.map((severity, place) => {
    const text = count(counts[place] ?? 0, severityWords[severity].toLowerCase());
    return make('li', {}, makeMark(severity), text);
  });
  return make('ul', { class: 'tally', 'aria-label': 'Findings by severity' }, ...words);
}

/** Says which findings are not listed; null where all are. */
export function makeRest(listed: number, total: number): HTMLElement | null {
  if (listed >= total) return null;
  const text = `The worst ${formatCount(listed)} of ${formatCount(total)} findings are listed.`;
  return make('p', { class: 'small' }, text);
}

export interface FindingsListOptions {
  /** Where a finding is. */
  readonly place: (number: number) => string;
  readonly choose: (number: number) => void;
  /** More equal ones than these are one row, which opens. */
  readonly mostEqual: number;
  /** What stands beside a row, for a finding or a number of equal ones. */
  readonly aside?: (number: number) => Node;
}

interface Place {
  readonly list: LongList;
  readonly row: number;
  /** Of the group in which it stands, if it has others. */
  readonly open: (() => LongList) | null;
  readonly inGroup: number;
}

export class FindingsList {
  readonly element = make('div');
  readonly #findings: readonly ListedFinding[];
  readonly #options: FindingsListOptions;
  #order: readonly number[] = [];
  #places = new Map<number, Place>();
  #buttons = new Map<number, HTMLElement>();
  #marked: HTMLElement | null = null;

  constructor(findings: readonly ListedFinding[], options: FindingsListOptions) {
    this.#findings = findings;
    this.#options = options;
  }

  /** Those that are listed, in their order. */
  get order(): readonly number[] {
    return this.#order;
  }

  fill(accepts: (finding: ListedFinding, number: number) => boolean): void {
    this.#places = new Map();
    this.#buttons = new Map();
    const equal = groupFindings(this.#findings, accepts);
    const groups = equal.flatMap((group) =>
      group.length > this.#options.mostEqual ? [group] : group.map((number) => [number]),
    );
    this.#order = groups.flat();
    const sections = severities.flatMap((severity) => {
      const own = groups.filter((group) => this.#findings[group[0] ?? -1]?.severity === severity);
      return own.length === 0 ? [] : [this.#makeSection(severity, own)];
    });
    this.element.replaceChildren(...sections);
  }

  /** Marks a finding as the one that was chosen, and brings it into view. */
  mark(number: number): void {
    this.#marked?.removeAttribute('aria-current');
    const place = this.#places.get(number);
    place?.list.reach(place.row);
    place?.open?.().reach(place.inGroup);
    this.#marked = this.#buttons.get(number) ?? null;
    this.#marked?.setAttribute('aria-current', 'true');
    this.#marked?.scrollIntoView({ block: 'nearest' });
  }

  #makeSection(severity: Severity, groups: readonly number[][]): HTMLElement {
    const title = make('h3', {}, makeMark(severity), `${severityWords[severity]}s`);
    const element = make('ul', { class: 'rows' });
    const openers = new Map<number, () => LongList>();
    const list: LongList = new LongList(element, groups.length, (row) => {
      const group = groups[row] ?? [];
      const first = group[0] ?? -1;
      if (group.length === 1) return make('li', {}, this.#makeRow(first), this.#options.aside?.(first) ?? null);
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
    const finding = this.#findings[number];
    if (!finding) return make('span');
    const { severity, message, consequence } = finding;
    const button = makeButton('', () => this.#options.choose(number), {
      class: consequence ? 'row consequence' : 'row',
      'data-finding': number,
    });
    const word = consequence ? `${severityWords[severity]}, a consequence` : severityWords[severity];
    button.append(
      makeMark(severity),
      make('span', { class: 'sentence' }, make('span', { class: 'unseen' }, `${word}: `), message),
      make('span', { class: 'where' }, this.#options.place(number)),
    );
    this.#buttons.set(number, button);
    return button;
  }

  #makeGroup(group: readonly number[]): { readonly row: HTMLElement; readonly open: () => LongList } {
    const first = group[0] ?? -1;
    const { message, className } = this.#findings[first] ?? { message: '', className: '' };
    const list = make('ul', { class: 'rows', hidden: true });
    const button = makeButton('', () => (list.hidden ? open() : close()), { class: 'row', 'aria-expanded': 'false' });
    button.append(
      make('span', { class: 'badge' }, `${formatCount(group.length)} ×`),
      make('span', { class: 'sentence' }, `${message}, and the like`),
    );
    const aside = this.#options.aside?.(first) ?? null;
    if (!aside) button.append(make('span', { class: 'where' }, className));
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
    return { row: make('li', { class: 'group' }, button, aside, list), open };
  }
}

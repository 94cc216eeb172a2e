// The findings of the file that is shown: filtered by severity and text, each with its place and a way to its explanation.
import type { Finding, Severity } from '../module/types.ts';
import { make, makeCheckbox } from '../viewer/dom.ts';
import { FindingsList, makeRest } from '../viewer/findings_list.ts';
import { makeMark } from '../viewer/marks.ts';
import { count, severities, severityWords } from '../viewer/words.ts';
import { addressOf } from './explanations.ts';
import type { Session } from './session.ts';

/** More equal ones are one row, as in what the program prints. */
const mostEqual = 5;

const placeOf = ({ de, line }: Finding): string => (de === undefined ? `line ${line}` : `DE ${de} · line ${line}`);

/** What the filter looks for a text in. */
const textOf = (finding: Finding): string => `${finding.message}\n${placeOf(finding)}\n${finding.class}`.toLowerCase();

function makeAside(finding: Finding | undefined): HTMLElement {
  const link = make('a', { href: addressOf(finding?.class ?? '') }, finding?.class ?? '');
  return make('p', { class: 'where aside' }, finding?.repairable ? make('span', {}, 'can be repaired') : null, link);
}

export class FindingsPanel {
  readonly element = make('section', { class: 'findings' });
  readonly #session: Session;
  readonly #result = make('div');
  readonly #search = make('input', { type: 'search', autocomplete: 'off', spellcheck: 'false' });
  readonly #shown = new Set<Severity>(severities);
  readonly #ticks = new Map<Severity, { readonly label: HTMLElement; readonly row: HTMLElement }>();
  readonly #consequences: ReturnType<typeof makeCheckbox>;
  readonly #consequencesLabel = make('span');
  readonly #rest = make('div');
  readonly #filters: HTMLElement;
  #withConsequences = false;
  #findings: readonly Finding[] = [];
  #texts: readonly string[] = [];
  #list: FindingsList | null = null;

  constructor(session: Session) {
    this.#session = session;
    this.#consequences = makeCheckbox((isOn) => {
      this.#withConsequences = isOn;
      this.#fill();
    }, this.#consequencesLabel);
    this.#filters = this.#makeFilters();
    this.element.append(make('h2', { class: 'unseen' }, 'Findings'), this.#filters, this.#result);
    session.listen((state, before) => {
      const { part } = session;
      const old = before.parts.find(({ id }) => id === before.chosen);
      if (part?.id !== old?.id || part?.report !== old?.report || part?.failure !== old?.failure) this.#show();
      if (state.finding !== before.finding) this.#mark();
    });
  }

  #makeFilters(): HTMLElement {
    const tally = make('div', { class: 'tally', role: 'group', 'aria-label': 'Findings by severity' });
    for (const severity of severities) {
      const label = make('span');
      const { row, input } = makeCheckbox(
        (isOn) => {
          if (isOn) this.#shown.add(severity);
          else this.#shown.delete(severity);
          this.#fill();
        },
        makeMark(severity),
        label,
      );
      input.checked = true;
      this.#ticks.set(severity, { label, row });
      tally.append(row);
    }
    this.#search.addEventListener('input', () => this.#fill());
    const field = make('label', { class: 'search' }, make('span', { class: 'small' }, 'With the text'), this.#search);
    return make('div', { class: 'filters-bar' }, tally, this.#consequences.row, field, this.#rest);
  }

  /** Another file, or what came of its check. */
  #show(): void {
    const { part } = this.#session;
    const report = part?.report ?? null;
    this.#findings = report?.errors ?? [];
    this.#texts = this.#findings.map(textOf);
    this.#list = null;
    this.#filters.hidden = !report || report.error_count === 0;
    if (!part || !report) {
      const text = part?.failure ? `${part.source.name}: ${part.failure}` : 'The file is being checked.';
      this.#result.replaceChildren(make('p', { class: part?.failure ? 'failure' : 'empty' }, text));
      return;
    }
    if (report.error_count === 0) {
      this.#result.replaceChildren(make('p', { class: 'praise' }, 'No faults were found. The file is sound.'));
      return;
    }
    for (const [severity, { label, row }] of this.#ticks) {
      label.textContent = count(report.counts[severity], severityWords[severity].toLowerCase());
      row.hidden = report.counts[severity] === 0;
    }
    const consequences = this.#findings.filter(({ consequence }) => consequence).length;
    this.#consequencesLabel.textContent = `With ${count(consequences, 'consequence')} of others`;
    this.#consequences.row.hidden = consequences === 0;
    this.#rest.replaceChildren(makeRest(this.#findings.length, report.error_count) ?? '');
    this.#makeList();
  }

  #makeList(): void {
    const findings = this.#findings;
    const listed = findings.map((finding) => ({ ...finding, className: finding.class }));
    this.#list = new FindingsList(listed, {
      place: (number) => (findings[number] ? placeOf(findings[number]) : ''),
      choose: (number) => this.#session.chooseFinding(findings[number] ?? null),
      mostEqual,
      aside: (number) => makeAside(findings[number]),
    });
    this.#fill();
  }

  #fill(): void {
    if (!this.#list) return;
    const wanted = this.#search.value.trim().toLowerCase();
    this.#list.fill(({ severity, consequence }, number) => {
      if (!this.#shown.has(severity) || (consequence && !this.#withConsequences)) return false;
      return wanted === '' || (this.#texts[number]?.includes(wanted) ?? false);
    });
    const isEmpty = this.#list.order.length === 0;
    const none = make('p', { class: 'empty', role: 'status' }, 'No finding matches.');
    this.#result.replaceChildren(isEmpty ? none : this.#list.element);
    this.#mark();
  }

  #mark(): void {
    const { finding } = this.#session.state;
    this.#list?.mark(finding ? this.#findings.indexOf(finding) : -1);
  }
}

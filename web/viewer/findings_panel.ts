// The findings of the model that is shown.
import type { Choice } from './choice.ts';
import { make, makeCheckbox } from './dom.ts';
import { FindingsList, makeRest, makeTally } from './findings_list.ts';
import type { Store } from './store.ts';
import { count } from './words.ts';

export class FindingsPanel {
  readonly element = make('section', { class: 'panel' });
  readonly #store: Store;
  readonly #choice: Choice;
  readonly #list: FindingsList;

  constructor(store: Store, choice: Choice) {
    this.#store = store;
    this.#choice = choice;
    const { findings } = store.model;
    this.#list = new FindingsList(findings, {
      place: (number) => {
        const finding = findings[number];
        if (!finding) return '';
        const { place, line, className } = finding;
        return [place, ...(line > 0 ? [`line ${line}`] : []), className].join(' · ');
      },
      choose: (number) => this.#choice.finding(number),
      mostEqual: 1,
    });
    this.element.append(make('h2', { class: 'unseen' }, 'Findings'), this.#makeSummary(), this.#list.element);
    this.#fill(false);
    store.listen((_, change) => {
      if (change.finding !== undefined) this.#list.mark(store.state.finding);
    });
  }

  /** Chooses the next finding of the list, or the one before. */
  step(by: 1 | -1): void {
    const { order } = this.#list;
    const at = order.indexOf(this.#store.state.finding);
    const next = at < 0 ? (by > 0 ? 0 : order.length - 1) : at + by;
    const finding = order[next];
    if (finding !== undefined) this.#choice.finding(finding);
  }

  #makeSummary(): HTMLElement {
    const { findings, counts } = this.#store.model;
    const total = counts.reduce((sum, one) => sum + one, 0);
    if (total === 0 && findings.length === 0) {
      const praise = make('p', { class: 'praise' }, 'No faults were found. The file is sound.');
      return make('div', { class: 'summary' }, praise);
    }
    const summary = make('div', { class: 'summary' }, makeTally(counts));
    const rest = makeRest(findings.length, total);
    if (rest) summary.append(rest);
    const consequences = findings.filter((finding) => finding.consequence).length;
    if (consequences > 0) {
      const label = `With ${count(consequences, 'consequence')} of others`;
      summary.append(makeCheckbox((isOn) => this.#fill(isOn), label).row);
    }
    return summary;
  }

  #fill(withConsequences: boolean): void {
    this.#list.fill(({ consequence }) => withConsequences || !consequence);
    this.#list.mark(this.#store.state.finding);
  }
}

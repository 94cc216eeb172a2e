// Repairs the file that is shown, and gives the repaired one away.
import { make, makeButton } from '../viewer/dom.ts';
import { RepairOptionsForm } from './repair_options.ts';
import { makeResult, outcomeOf } from './repair_result.ts';
import { repairedName, save } from './save.ts';
import type { Part, Session } from './session.ts';

export class RepairPanel {
  readonly element = make('section', { class: 'repair-panel', 'aria-labelledby': 'repair-title' });
  readonly #session: Session;
  readonly #form = new RepairOptionsForm();
  readonly #repair = makeButton('Repair', () => this.#onRepair(), { class: 'primary', disabled: true });
  readonly #download = makeButton('Download', () => this.#onDownload(), { disabled: true });
  /** Said as it changes, and seen. */
  readonly #outcome = make('p', { role: 'status', class: 'outcome' });
  readonly #result = make('div');

  constructor(session: Session) {
    this.#session = session;
    const buttons = make('div', { class: 'buttons' }, this.#repair, this.#download);
    const title = make('h2', { id: 'repair-title' }, 'Repair');
    this.element.append(title, this.#form.element, buttons, this.#outcome, this.#result);
    let before: Part | null = null;
    session.listen(() => {
      const { part } = session;
      if (part !== before) this.#show(part, before);
      before = part;
    });
  }

  #show(part: Part | null, before: Part | null): void {
    const isOther = part?.id !== before?.id;
    this.#form.show(part?.report ?? null, isOther);
    const isBusy = part?.jobs.includes('repair') ?? false;
    this.#repair.disabled = !part?.report;
    // It stays where the focus is.
    this.#repair.setAttribute('aria-disabled', String(isBusy));
    this.#repair.setAttribute('aria-busy', String(isBusy));
    this.#download.disabled = !part?.repair?.bytes;
    this.#outcome.textContent = part ? this.#outcomeOf(part) : '';
    if (part?.repair === before?.repair && !isOther) return;
    this.#result.replaceChildren(...(part?.repair ? [makeResult(part.repair)] : []));
  }

  #outcomeOf({ source, repair, jobs, failures }: Part): string {
    if (jobs.includes('repair')) return 'Repairing …';
    if (repair) return `${source.name}: ${outcomeOf(repair)}`;
    return failures.repair ?? '';
  }

  #onRepair(): void {
    const { part } = this.#session;
    const options = this.#form.options();
    if (part && options) void this.#session.repair(part.id, options);
  }

  #onDownload(): void {
    const { part } = this.#session;
    if (part?.repair?.bytes) save(part.repair.bytes, repairedName(part.source.name), 'model/iges');
  }
}

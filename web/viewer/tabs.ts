// Panels of which one is seen at a time.
import { make, makeButton, uniqueId } from './dom.ts';

interface Tab {
  readonly button: HTMLButtonElement;
  readonly panel: HTMLElement;
}

export class Tabs {
  readonly bar: HTMLElement;
  readonly panels = make('div', { class: 'tab-panels' });
  readonly #tabs: Tab[] = [];

  constructor(label: string) {
    this.bar = make('div', { role: 'tablist', 'aria-label': label, class: 'tabs' });
    this.bar.addEventListener('keydown', (event) => this.#onKey(event));
  }

  add(title: string, panel: HTMLElement): void {
    const id = uniqueId('tab');
    if (panel.id === '') panel.id = uniqueId('panel');
    const button = makeButton(title, () => this.open(panel), { role: 'tab', id, 'aria-controls': panel.id });
    panel.setAttribute('role', 'tabpanel');
    panel.setAttribute('aria-labelledby', id);
    this.#tabs.push({ button, panel });
    this.bar.append(button);
    this.panels.append(panel);
    this.open(this.#tabs[0]?.panel ?? panel);
  }

  /** Takes a panel out, to stand by itself under the name that it had. */
  remove(panel: HTMLElement): void {
    const place = this.#tabs.findIndex((tab) => tab.panel === panel);
    const [tab] = place < 0 ? [] : this.#tabs.splice(place, 1);
    if (!tab) return;
    tab.button.remove();
    panel.remove();
    panel.hidden = false;
    panel.removeAttribute('role');
    panel.removeAttribute('aria-labelledby');
    const first = this.#tabs[0];
    if (first && tab.button.ariaSelected === 'true') this.open(first.panel);
  }

  open(panel: HTMLElement): void {
    if (!this.#tabs.some((tab) => tab.panel === panel)) return;
    for (const tab of this.#tabs) {
      const isOpen = tab.panel === panel;
      tab.panel.hidden = !isOpen;
      tab.button.setAttribute('aria-selected', String(isOpen));
      tab.button.tabIndex = isOpen ? 0 : -1;
    }
  }

  /** Goes to the tab that is open. */
  focus(): void {
    this.#tabs.find(({ panel }) => !panel.hidden)?.button.focus();
  }

  #onKey(event: KeyboardEvent): void {
    const at = this.#tabs.findIndex((tab) => tab.button === event.target);
    const last = this.#tabs.length - 1;
    const goals: Record<string, number> = {
      ArrowLeft: at === 0 ? last : at - 1,
      ArrowRight: at === last ? 0 : at + 1,
      Home: 0,
      End: last,
    };
    const goal = this.#tabs[goals[event.key] ?? -1];
    if (at < 0 || !goal) return;
    event.preventDefault();
    this.open(goal.panel);
    goal.button.focus();
  }
}

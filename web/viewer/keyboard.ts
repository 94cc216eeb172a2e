// Keys for what is done often, and the list of them.
import type { Choice } from './choice.ts';
import { make, makeButton } from './dom.ts';
import type { FindingsPanel } from './findings_panel.ts';
import { toggleMeasuring } from './measure_panel.ts';
import { toggleSection } from './section_controls.ts';
import type { StageControls } from './stage_interface.ts';
import type { Store } from './store.ts';
import { views } from './toolbar.ts';
import type { Visibility } from './visibility.ts';

interface Shortcut {
  readonly keys: readonly string[];
  readonly what: string;
  readonly act: (event: KeyboardEvent) => void;
  /** Arrows and signs have other meanings outside the picture. */
  readonly inPicture?: true;
}

export interface Hands {
  readonly store: Store;
  readonly stage: StageControls;
  readonly visibility: Visibility;
  readonly choice: Choice;
  readonly findings: FindingsPanel;
}

const angle = Math.PI / 24;
const way = 0.08;

function move(stage: StageControls, event: KeyboardEvent): void {
  const right = event.key === 'ArrowRight' ? 1 : event.key === 'ArrowLeft' ? -1 : 0;
  const up = event.key === 'ArrowUp' ? 1 : event.key === 'ArrowDown' ? -1 : 0;
  if (event.shiftKey) stage.pan(right * way, up * way);
  else stage.turn(right * angle, up * angle);
}

/** Goes back by one step: out of measuring, then from what was chosen. */
function leave({ store, choice }: Hands): void {
  if (store.state.measuring) toggleMeasuring(store);
  else choice.clear();
}

function shortcutsOf(hands: Hands, openHelp: () => void): Shortcut[] {
  const { store, stage, visibility, findings } = hands;
  const look = (event: KeyboardEvent): void => {
    const view = views[Number(event.key) - 1];
    if (view) stage.look(view.value);
  };
  return [
    { keys: ['f'], what: 'Fit everything', act: () => stage.fit() },
    { keys: ['1', '2', '3', '4', '5', '6', '7'], what: views.map(({ label }) => label).join(', '), act: look },
    { keys: ['s'], what: 'Shaded', act: () => store.set({ shading: 'shaded' }) },
    { keys: ['w'], what: 'Wireframe', act: () => store.set({ shading: 'wireframe' }) },
    { keys: ['b'], what: 'Both', act: () => store.set({ shading: 'both' }) },
    { keys: ['m'], what: 'Measure', act: () => toggleMeasuring(store) },
    { keys: ['x'], what: 'Section', act: () => toggleSection(store) },
    { keys: ['n'], what: 'Next finding', act: () => findings.step(1) },
    { keys: ['p'], what: 'Previous finding', act: () => findings.step(-1) },
    { keys: ['h'], what: 'Hide what is chosen', act: () => visibility.setShown(store.state.chosen, false) },
    { keys: ['a'], what: 'Show all', act: () => visibility.showAll() },
    { keys: ['Escape'], what: 'Stop measuring; choose nothing', act: () => leave(hands) },
    {
      keys: ['ArrowLeft', 'ArrowRight', 'ArrowUp', 'ArrowDown'],
      what: 'Turn; with Shift, move',
      act: (event) => move(stage, event),
      inPicture: true,
    },
    { keys: ['+', '='], what: 'Nearer', act: () => stage.zoom(1.2), inPicture: true },
    { keys: ['-'], what: 'Farther', act: () => stage.zoom(1 / 1.2), inPicture: true },
    { keys: ['?'], what: 'This list', act: openHelp },
  ];
}

function makeHelp(shortcuts: readonly Shortcut[]): HTMLDialogElement {
  const rows = shortcuts.map(({ keys, what, inPicture }) => {
    const names = keys.map((key) => make('kbd', {}, key.replace('Arrow', '')));
    return make('tr', {}, make('th', { scope: 'row' }, ...names), make('td', {}, what, inPicture ? ' (picture)' : ''));
  });
  // The button comes first: it gets the focus, and the dialog opens where that is.
  const close = makeButton('Close', () => dialog.close());
  const heading = make('div', { class: 'heading' }, make('h2', {}, 'Keys'), close);
  const dialog = make('dialog', { class: 'help', 'aria-label': 'Keys' }, heading);
  const hint = 'Those of the picture work while it has the focus, all others wherever nothing is typed.';
  dialog.append(make('p', { class: 'small' }, hint), make('table', {}, make('tbody', {}, ...rows)));
  return dialog;
}

function isTyped(target: EventTarget | null): boolean {
  return target instanceof Element && target.closest('input:not([type=checkbox]), select, textarea, dialog') !== null;
}

/** Listens to the keys of `viewer`; what it returns opens their list. */
export function startKeyboard(viewer: HTMLElement, picture: HTMLElement, hands: Hands): () => void {
  const openHelp = (): void => help.showModal();
  const shortcuts = shortcutsOf(hands, openHelp);
  const help = makeHelp(shortcuts);
  viewer.append(help);
  viewer.addEventListener('keydown', (event) => {
    if (event.ctrlKey || event.metaKey || event.altKey || event.defaultPrevented || isTyped(event.target)) return;
    const shortcut = shortcuts.find(({ keys }) => keys.includes(event.key));
    const isInPicture = event.target === viewer || event.target === picture;
    if (!shortcut || (shortcut.inPicture && !isInPicture)) return;
    event.preventDefault();
    shortcut.act(event);
  });
  return openHelp;
}

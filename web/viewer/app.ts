// Puts the viewer together.
import { Choice } from './choice.ts';
import { DetailsPanel } from './details_panel.ts';
import { DifferencesPanel } from './differences_panel.ts';
import { make, makeButton } from './dom.ts';
import { FiltersPanel } from './filters_panel.ts';
import { FindingsPanel } from './findings_panel.ts';
import { startKeyboard } from './keyboard.ts';
import { makeLive } from './live.ts';
import { makeMeasurePanel } from './measure_panel.ts';
import type { Model } from './model.ts';
import { ModelIndex } from './model_index.ts';
import { makeSectionControls } from './section_controls.ts';
import { Stage } from './stage.ts';
import type { StageControls } from './stage_interface.ts';
import { Store } from './store.ts';
import { Tabs } from './tabs.ts';
import { followTheme, makeThemeSwitch, startsDark } from './theme.ts';
import { makeLegend, makeToolbar } from './toolbar.ts';
import { TreePanel } from './tree_panel.ts';
import { Visibility } from './visibility.ts';
import { formatLength, sizeOf, unitsOf } from './words.ts';

function makeTitle(model: Model): HTMLElement {
  const { title, oldTitle, low, high } = model;
  const sides = high.map((end, axis) => formatLength(end - (low[axis] ?? 0), sizeOf(model)));
  const names = oldTitle === '' ? title : `${oldTitle} → ${title}`;
  const size = `${sides.join(' × ')} ${unitsOf(model)}`;
  return make('div', { class: 'title' }, make('h1', { title: names }, names), make('p', {}, size));
}

/** The picture's part of the layout, and where the stage draws. */
function makePicture(model: Model): Readonly<Record<'picture' | 'view' | 'host', HTMLElement>> {
  const label = 'The model in three dimensions. Arrow keys turn it, plus and minus zoom, question mark lists all keys.';
  const host = make('div', { class: 'stage', tabindex: 0, role: 'application', 'aria-label': label });
  const view = make('div', { class: 'view' }, host);
  const picture = make('section', { class: 'picture', 'aria-label': 'Picture' }, view);
  if (model.remarks.length > 0) {
    const remarks = model.remarks.map((remark) => make('li', {}, remark));
    picture.append(make('ul', { class: 'remarks', 'aria-label': 'Remarks' }, ...remarks));
  }
  return { picture, view, host };
}

/** What stands elsewhere on phones: the details are one of the tabs there, and a comparison's legend is in its panel. */
interface Movables {
  readonly tabs: Tabs;
  readonly details: HTMLElement;
  readonly legend: HTMLElement;
  readonly view: HTMLElement;
  readonly overlay: HTMLElement;
  readonly changes: HTMLElement | null;
}

function arrange(viewer: HTMLElement, { tabs, details, legend, view, overlay, changes }: Movables): void {
  const isPhone = viewer.clientWidth < 700;
  const wasPhone = viewer.classList.contains('phone');
  viewer.classList.toggle('phone', isPhone);
  viewer.classList.toggle('wide', viewer.clientWidth >= 1100);
  if (isPhone === wasPhone && details.isConnected) return;
  if (!changes) overlay.prepend(legend);
  else if (isPhone) changes.prepend(legend);
  else view.before(legend);
  tabs.remove(details);
  if (isPhone) return tabs.add('Details', details);
  details.setAttribute('aria-label', 'Details');
  viewer.append(details);
}

/** What a page can do with the viewer in it. */
export interface Viewer {
  setDark(dark: boolean): void;
  /** Chooses the finding that says this of this line; false where the model has none. */
  showFinding(finding: { readonly line: number; readonly message: string }): boolean;
  /** Takes it out again. */
  stop(): void;
}

/**
 * Shows a model in `root`, which has a size. Throws, and leaves `root` as it was, where the browser cannot draw it. A page
 * that says whether it is dark has a switch for that itself.
 */
export function startViewer(root: HTMLElement, model: Model, dark?: boolean): Viewer {
  const store = new Store(model, dark ?? startsDark());
  const index = new ModelIndex(model);
  const visibility = new Visibility(store);
  const { picture, view, host } = makePicture(model);
  const header = make('div', { class: 'bar' }, makeTitle(model));
  const viewer = make('div', { class: 'viewer', tabindex: -1 }, header, picture);
  followTheme(viewer, store);
  root.append(viewer);

  // It is made last, when its place has its size.
  let drawn: Stage | null = null;
  const stage: StageControls = {
    fit: (items) => drawn?.fit(items),
    look: (from) => drawn?.look(from),
    turn: (right, up) => drawn?.turn(right, up),
    pan: (right, up) => drawn?.pan(right, up),
    zoom: (factor) => drawn?.zoom(factor),
  };
  const choice = new Choice(store, index, visibility, stage);
  const { region, announce } = makeLive(store);
  const findings = new FindingsPanel(store, choice);
  const details = new DetailsPanel(store, index, choice).element;
  const tabs = new Tabs('Panels');
  const changes = model.oldTitle === '' ? null : new DifferencesPanel(store, choice).element;
  if (changes) tabs.add('Changes', changes);
  tabs.add('Findings', findings.element);
  tabs.add('Tree', new TreePanel(store, index, visibility, choice).element);
  tabs.add('Show', new FiltersPanel(store, index, visibility).element);

  const overlay = make('div', { class: 'overlay' }, makeSectionControls(store), makeMeasurePanel(store, announce));
  picture.prepend(makeToolbar(store, stage));
  view.append(overlay);
  viewer.append(make('section', { class: 'panels', 'aria-label': 'Panels' }, tabs.bar, tabs.panels), region);
  const openHelp = startKeyboard(viewer, host, { store, stage, visibility, choice, findings });
  if (dark === undefined) header.append(makeThemeSwitch(store));
  header.append(makeButton('Keys', openHelp, { title: 'Keys (?)' }));

  store.listen((state, change) => {
    if (change.chosen && state.chosen.length > 0 && host.contains(document.activeElement)) tabs.open(details);
  });
  const movables = { tabs, details, legend: makeLegend(store), view, overlay, changes };
  arrange(viewer, movables);
  try {
    drawn = new Stage(host, store);
  } catch (error) {
    viewer.remove();
    throw error;
  }
  const observer = new ResizeObserver(() => arrange(viewer, movables));
  observer.observe(viewer);
  if (document.activeElement === document.body) viewer.focus({ preventScroll: true });
  return {
    setDark: (isDark) => store.set({ dark: isDark }),
    showFinding: ({ line, message }) => {
      const number = model.findings.findIndex((finding) => finding.line === line && finding.message === message);
      if (number >= 0) choice.finding(number);
      return number >= 0;
    },
    stop: () => {
      observer.disconnect();
      drawn?.dispose();
      viewer.remove();
    },
  };
}

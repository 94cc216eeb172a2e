// The tools of the picture, and what explains its colours.
import { make, makeButton, makeChoice, setPressed } from './dom.ts';
import type { Option } from './dom.ts';
import { toggleMeasuring } from './measure_panel.ts';
import { toggleSection } from './section_controls.ts';
import type { StageControls, View } from './stage_interface.ts';
import type { Shading, Side, Store } from './store.ts';
import { changeWords } from './words.ts';

/** In the order of their keys, 1 to 7. */
export const views: readonly Option<View>[] = [
  { value: 'front', label: 'Front' },
  { value: 'back', label: 'Back' },
  { value: 'left', label: 'Left' },
  { value: 'right', label: 'Right' },
  { value: 'top', label: 'Top' },
  { value: 'bottom', label: 'Bottom' },
  { value: 'isometric', label: 'Isometric' },
];

const shadings: readonly Option<Shading>[] = [
  { value: 'shaded', label: 'Shaded' },
  { value: 'wireframe', label: 'Wireframe' },
  { value: 'both', label: 'Both' },
];

const sides: readonly Option<Side>[] = [
  { value: 'old', label: 'Before' },
  { value: 'new', label: 'After' },
  { value: 'both', label: 'Both' },
];

/** The first entry names the menu, so that every view can be chosen again. */
function makeViews(stage: StageControls): HTMLElement {
  const select = make('select', { 'aria-label': 'Standard view' }, make('option', { value: '' }, 'View'));
  for (const { value, label } of views) select.append(make('option', { value }, label));
  select.addEventListener('change', () => {
    const view = views.find(({ value }) => value === select.value);
    if (view) stage.look(view.value);
    select.value = '';
  });
  return select;
}

function makeShadings(store: Store): HTMLElement {
  const select = make('select', { 'aria-label': 'Shading' });
  for (const { value, label } of shadings) select.append(make('option', { value }, label));
  select.addEventListener('change', () => {
    const shading = shadings.find(({ value }) => value === select.value);
    if (shading) store.set({ shading: shading.value });
  });
  const show = (): void => void (select.value = store.state.shading);
  store.listen(show);
  show();
  return select;
}

export function makeToolbar(store: Store, stage: StageControls): HTMLElement {
  const measure = makeButton('Measure', () => toggleMeasuring(store), { title: 'Measure (m)' });
  const section = makeButton('Section', () => toggleSection(store), { title: 'Section (x)' });
  const fit = makeButton('Fit', () => stage.fit(), { title: 'Fit (f)' });
  const show = (): void => {
    setPressed(measure, store.state.measuring);
    setPressed(section, store.state.section !== null);
  };
  store.listen(show);
  show();
  const tools = [fit, makeViews(stage), makeShadings(store), measure, section];
  return make('div', { class: 'toolbar', role: 'group', 'aria-label': 'Tools of the picture' }, ...tools);
}

function makeEntry(name: string, label: string): HTMLElement {
  return make('li', {}, make('span', { class: `swatch legend-${name}`, 'aria-hidden': 'true' }), label);
}

/** What the colours of a comparison and of what was chosen mean. */
export function makeLegend(store: Store): HTMLElement {
  const legend = make('div', { class: 'legend' });
  const entries = make('ul', { 'aria-label': 'Colours' });
  const marks = [makeEntry('chosen', 'Chosen'), makeEntry('dependent', 'Depends on it')];
  const isComparison = store.model.oldTitle !== '';
  if (isComparison) {
    const side = makeChoice('Before or after', sides, (value) => store.set({ side: value }));
    side.show(store.state.side);
    store.listen((state, change) => {
      if (change.side !== undefined) side.show(state.side);
    });
    legend.append(side.group);
    for (const change of ['changed', 'added', 'removed', 'none'] as const)
      entries.append(makeEntry(change, changeWords[change]));
  }
  legend.append(entries);
  entries.append(...marks);
  const show = (): void => {
    for (const mark of marks) mark.hidden = store.state.dependents.length === 0;
    legend.hidden = !isComparison && store.state.dependents.length === 0;
  };
  store.listen(show);
  show();
  return legend;
}

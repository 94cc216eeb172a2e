// The plane that cuts the model open.
import { make, makeButton, makeChoice, setPressed } from './dom.ts';
import type { Axis, Section, Store } from './store.ts';
import { formatLength, sizeOf, unitsOf } from './words.ts';

const axes = ['x', 'y', 'z'] as const;

export function toggleSection(store: Store): void {
  store.set({ section: store.state.section ? null : { axis: 'x', position: 0.5, flipped: false } });
}

export function makeSectionControls(store: Store): HTMLElement {
  const { model } = store;
  const change = (part: Partial<Section>): void => {
    const { section } = store.state;
    if (section) store.set({ section: { ...section, ...part } });
  };
  const labels = axes.map((value) => ({ value, label: value.toUpperCase() }));
  const axis = makeChoice<Axis>('Axis of the section', labels, (value) => change({ axis: value }));
  const slider = make('input', { type: 'range', min: 0, max: 1, step: 0.001, 'aria-label': 'Place of the section' });
  slider.addEventListener('input', () => change({ position: slider.valueAsNumber }));
  const place = make('output', { class: 'number' });
  const flip = makeButton('Flip', () => change({ flipped: !store.state.section?.flipped }));
  const off = makeButton('Off', () => store.set({ section: null }), { 'aria-label': 'Section off' });
  const card = make('section', { class: 'card', 'aria-label': 'Section' }, axis.group, slider, place, flip, off);

  const show = (): void => {
    const { section } = store.state;
    card.hidden = section === null;
    if (!section) return;
    axis.show(section.axis);
    slider.value = String(section.position);
    const [low, high] = [model.low, model.high].map((corner) => corner[axes.indexOf(section.axis)] ?? 0);
    const at = (low ?? 0) + section.position * ((high ?? 0) - (low ?? 0));
    const text = `${section.axis} = ${formatLength(at, sizeOf(model))} ${unitsOf(model)}`;
    place.textContent = text;
    slider.setAttribute('aria-valuetext', text);
    setPressed(flip, section.flipped);
  };
  store.listen((_, { section }) => {
    if (section !== undefined) show();
  });
  show();
  return card;
}

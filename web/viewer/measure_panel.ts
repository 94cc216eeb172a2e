// The distance between two points.
import type { Announce } from './live.ts';
import { make, makeButton } from './dom.ts';
import type { Measure, Store } from './store.ts';
import { formatLength, sizeOf, unitsOf } from './words.ts';

export function toggleMeasuring(store: Store): void {
  store.set({ measuring: !store.state.measuring, measure: null });
}

export interface Distances {
  readonly distance: number;
  readonly along: readonly [number, number, number];
}

export function distancesOf({ from, to }: Measure): Distances | null {
  if (!to) return null;
  const along: [number, number, number] = [to[0] - from[0], to[1] - from[1], to[2] - from[2]];
  return { distance: Math.hypot(...along), along };
}

export function makeMeasurePanel(store: Store, announce: Announce): HTMLElement {
  const hint = make('p');
  const numbers = make('dl', { class: 'facts number' });
  const again = makeButton('Clear', () => store.set({ measure: null }));
  const done = makeButton('Done', () => toggleMeasuring(store));
  const buttons = make('div', { class: 'buttons' }, again, done);
  const card = make('section', { class: 'card', 'aria-label': 'Measure' }, hint, numbers, buttons);
  const format = (length: number): string => `${formatLength(length, sizeOf(store.model))} ${unitsOf(store.model)}`;

  const show = (): void => {
    const { measuring, measure } = store.state;
    card.hidden = !measuring;
    const found = measure && distancesOf(measure);
    again.hidden = !measure;
    hint.hidden = found !== null;
    hint.textContent = measure ? 'Choose the second point.' : 'Choose two points of the model.';
    numbers.hidden = found === null;
    numbers.replaceChildren();
    if (!found) return;
    const names = ['Distance', 'dx', 'dy', 'dz'];
    [found.distance, ...found.along].forEach((length, row) =>
      numbers.append(make('dt', {}, names[row] ?? ''), make('dd', {}, format(length))),
    );
    announce(`Distance ${format(found.distance)}.`);
  };
  store.listen((_, { measuring, measure }) => {
    if (measuring !== undefined || measure !== undefined) show();
  });
  show();
  return card;
}

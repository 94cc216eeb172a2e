// Tells those who do not see the picture what has happened in it.
import { make } from './dom.ts';
import type { State, Store } from './store.ts';
import { count, entityTitle, severityWords } from './words.ts';

export type Announce = (text: string) => void;

function whatIsChosen({ model, state }: { readonly model: Store['model']; readonly state: State }): string {
  const finding = model.findings[state.finding];
  const entity = model.entities[state.entity];
  if (!finding && !entity && state.chosen.length === 0) return 'Nothing is chosen.';
  const sentences: string[] = [];
  if (finding) sentences.push(`${severityWords[finding.severity]}: ${finding.message}.`);
  if (entity) sentences.push(`${entityTitle(entity)}.`);
  if (state.chosen.length === 0) sentences.push('Nothing of it is in the picture.');
  else sentences.push(`${count(state.chosen.length, 'part')} of the picture marked.`);
  if (state.dependents.length > 0) sentences.push(`${count(state.dependents.length, 'part')} depending on it.`);
  return sentences.join(' ');
}

export function makeLive(store: Store): { readonly region: HTMLElement; readonly announce: Announce } {
  const region = make('p', { class: 'unseen', role: 'status' });
  const announce: Announce = (text) => (region.textContent = text);
  store.listen((_, change) => {
    if (change.chosen) announce(whatIsChosen(store));
  });
  return { region, announce };
}

// What stands above all panels: which file is shown, what is in it and what is being done.
import { make, makeButton } from '../viewer/dom.ts';
import { count } from '../viewer/words.ts';
import type { Part, Session } from './session.ts';
import { sizeInWords } from './words.ts';

function wordsOf({ source, report, failure, doing }: Part): string {
  const words = [sizeInWords(source.bytes.size)];
  if (report) words.push(count(report.entities, 'entity', 'entities'), `units ${report.units ?? 'unknown'}`);
  if (report && !report.read) words.push('not read to its end');
  if (doing !== '') words.push(`${doing} …`);
  else if (failure !== '') words.push('no findings');
  return words.join(' · ');
}

export function makePartHeading(session: Session): HTMLElement {
  const [title, about] = [make('h2'), make('p', { class: 'where' })];
  const stop = makeButton('Stop', () => session.part && session.workshop.stop(session.part.source));
  const remove = makeButton('Remove', () => session.remove(session.state.chosen), {
    title: 'Remove the file from the list (Delete)',
  });
  session.listen(() => {
    const { part } = session;
    if (!part) return;
    title.textContent = part.source.name;
    title.title = part.source.name;
    about.textContent = wordsOf(part);
    stop.hidden = part.doing === '';
    remove.setAttribute('aria-label', `Remove ${part.source.name}`);
  });
  const words = make('div', { class: 'desk-title' }, title, about);
  return make('div', { class: 'desk-heading part-heading' }, words, make('div', { class: 'buttons' }, stop, remove));
}

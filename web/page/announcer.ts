// Tells those who do not see the page what came of checks.
import { make } from '../viewer/dom.ts';
import { count } from '../viewer/words.ts';
import type { Part, Session } from './session.ts';
import { resultOf } from './words.ts';

const isDone = (part: Part): boolean => part.report !== null || part.failure !== '';

/** Of several files what is found in all, when the last has been checked. */
function sentenceOf(parts: readonly Part[]): string {
  const [first, ...others] = parts;
  if (!first) return '';
  if (others.length === 0) return `${first.source.name}: ${resultOf(first)}.`;
  const faulty = parts.filter(({ report }) => report && report.counts.error + report.counts.warning > 0);
  const failed = parts.filter(({ failure }) => failure !== '');
  const unread = failed.length > 0 ? `, ${count(failed.length, 'file')} could not be read` : '';
  return `${count(parts.length, 'file')} checked: ${count(faulty.length, 'file')} with errors or warnings${unread}.`;
}

export function makeAnnouncer(session: Session): HTMLElement {
  const region = make('p', { class: 'unseen', role: 'status' });
  const waiting = new Set<number>();
  let done: number[] = [];
  session.listen((state, before) => {
    if (state.parts === before.parts) return;
    const known = new Set(before.parts.map(({ id }) => id));
    const now = new Map(state.parts.map((part) => [part.id, part]));
    for (const { id } of state.parts) if (!known.has(id)) waiting.add(id);
    for (const id of waiting) {
      const part = now.get(id);
      if (part && !isDone(part)) continue;
      waiting.delete(id);
      if (part) done.push(id);
    }
    if (waiting.size > 0 || done.length === 0) return;
    region.textContent = sentenceOf(done.flatMap((id) => now.get(id) ?? []));
    done = [];
  });
  return region;
}

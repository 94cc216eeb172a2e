// The state of a file in words.
import { makeMark } from '../viewer/marks.ts';
import { make } from '../viewer/dom.ts';
import { count, formatCount, severities } from '../viewer/words.ts';
import type { Report } from '../module/types.ts';
import type { Part } from './session.ts';

/** "4 errors, 6 warnings": without what there is none of. */
export function countsInWords({ counts }: Report): string {
  const words = severities.flatMap((severity) => (counts[severity] > 0 ? [count(counts[severity], severity)] : []));
  return words.join(', ') || 'no faults';
}

/** What came of the check in one sentence; '' before. */
export function resultOf({ report, failure }: Part): string {
  if (failure !== '') return failure;
  return report ? countsInWords(report) : '';
}

/** The counts as marks and numbers, with their words for those who hear them. */
export function makeCounts(report: Report): HTMLElement {
  const shown = severities.filter((severity) => report.counts[severity] > 0);
  const parts = shown.map((severity) =>
    make('span', { class: 'count' }, makeMark(severity), formatCount(report.counts[severity])),
  );
  if (shown.length === 0) return make('span', { class: 'where' }, countsInWords(report));
  const words = make('span', { class: 'unseen' }, countsInWords(report));
  return make('span', { class: 'counts' }, make('span', { 'aria-hidden': 'true' }, ...parts), words);
}

/** "11.8 kB". */
export function sizeInWords(bytes: number): string {
  const [size, unit] = bytes < 1e6 ? [bytes / 1e3, 'kB'] : [bytes / 1e6, 'MB'];
  return `${size.toLocaleString('en', { maximumFractionDigits: 1 })} ${unit}`;
}

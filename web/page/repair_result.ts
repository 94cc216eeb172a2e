// What came of a repair: what is cured, left, deleted and lost, and where the file could not be written, why.
import type { Finding, RepairReport } from '../module/types.ts';
import { make } from '../viewer/dom.ts';
import { LongList } from '../viewer/long_list.ts';
import { makeMark } from '../viewer/marks.ts';
import { count, formatCount, severities, severityWords } from '../viewer/words.ts';
import { makeScrollBox } from './scroll_box.ts';
import { mostListed } from './session.ts';

/** "4 repaired, 4 errors left". */
export function outcomeOf({ fixed, counts, written, lost }: RepairReport): string {
  if (written === null) return 'nothing was written';
  const more = fixed.length < mostListed ? '' : ' or more';
  const left = severities.flatMap((severity) => (counts[severity] > 0 ? [count(counts[severity], severity)] : []));
  const words = [`${formatCount(fixed.length)}${more} repaired`, `${left.join(', ') || 'no faults'} left`];
  if (lost.length > 0) words.push(`${count(lost.length, 'entity', 'entities')} lost`);
  return words.join(', ');
}

/** Where it is longer than a line, it is broken between its words. */
function makeClassName(name: string): HTMLElement {
  const words = name.split(/(?<=[a-z0-9])(?=[A-Z])/);
  return make('span', { class: 'class-name' }, ...words.flatMap((word) => [make('wbr'), word]));
}

function makeRow(shape: Parameters<typeof makeMark>[0], where: string, ...sentence: readonly (Node | string)[]) {
  const row = make('li', { class: 'row' }, makeMark(shape), make('span', { class: 'sentence' }, ...sentence));
  row.append(make('span', { class: 'where' }, where));
  return row;
}

function makeFinding({ severity, message, line, de, type, consequence, class: className }: Finding): HTMLElement {
  const word = `${severityWords[severity]}${consequence ? ', a consequence' : ''}: `;
  const entity = de === undefined ? [] : [`type ${type ?? '?'} (DE ${de})`];
  const where = [`line ${line}`, ...entity, ''].join(' · ');
  const row = makeRow(severity, where, make('span', { class: 'unseen' }, word), message);
  row.lastElementChild?.append(makeClassName(className));
  return row;
}

/** A list that can be folded; null where it would be empty. */
function makeList(title: string, number: number, total: number, isOpen: boolean, makeItem: (row: number) => Node) {
  if (number === 0) return null;
  const list = make('ul', { class: 'rows' });
  new LongList(list, number, (row) => {
    const item = makeItem(row);
    return item instanceof HTMLElement ? item : make('li', {}, item);
  });
  const details = make('details', { open: isOpen }, make('summary', {}, `${title} (${formatCount(total)})`));
  if (number < total) details.append(make('p', { class: 'small' }, `The worst ${formatCount(number)} are listed.`));
  details.append(makeScrollBox(title, list));
  return details;
}

function makeFindings(title: string, findings: readonly Finding[], total: number, isOpen: boolean) {
  return makeList(title, findings.length, total, isOpen, (row) => {
    const finding = findings[row];
    return finding ? makeFinding(finding) : make('li');
  });
}

function reasonOf({ read }: RepairReport): string {
  if (!read) return 'The file ends early or lacks sections: Salvage writes what could be read of it.';
  return 'The repaired file would not have been whole.';
}

export function makeResult(repair: RepairReport): HTMLElement {
  const { errors, error_count: total, fixed, lost, written, deleted = [] } = repair;
  const parts = [
    written === null ? make('p', { class: 'failed' }, reasonOf(repair)) : null,
    makeList(written === null ? 'Would be lost' : 'Lost', lost.length, lost.length, true, (row) => {
      const entity = lost[row];
      return entity
        ? makeRow('removed', `line ${entity.line} · type ${entity.type ?? 'unknown'} (DE ${entity.de})`, entity.why)
        : make('li');
    }),
    makeList('Deleted', deleted.length, deleted.length, true, (row) =>
      makeRow('removed', '', `DE ${deleted[row] ?? ''}`),
    ),
    makeFindings(written === null ? 'Found' : 'Left in the new file', errors, total, true),
    written === null ? null : makeFindings('Cured', fixed, fixed.length, false),
  ];
  return make('div', { class: 'repair-result' }, ...parts);
}

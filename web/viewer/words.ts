// Numbers and things as people read them.
import type { Change, Entity, Kind, Model, Severity } from './model.ts';

const numbers = new Intl.NumberFormat('en');

/** "1 error", "2,000 errors". */
export function count(number: number, noun: string, plural = `${noun}s`): string {
  return `${numbers.format(number)} ${number === 1 ? noun : plural}`;
}

export const formatCount = (number: number): string => numbers.format(number);

export const severities: readonly Severity[] = ['error', 'warning', 'note'];

export const severityWords: Readonly<Record<Severity, string>> = { error: 'Error', warning: 'Warning', note: 'Note' };

export const changeWords: Readonly<Record<Change, string>> = {
  none: 'Unchanged',
  changed: 'Changed',
  added: 'Added',
  removed: 'Removed',
};

export const kindWords: Readonly<Record<Kind, string>> = {
  face: 'face',
  edge: 'edge',
  curve: 'curve',
  point: 'point',
  annotation: 'annotation',
};

/** The longest side of the model's box; 1 where it has none. */
export function sizeOf(model: Model): number {
  const size = Math.max(...model.high.map((high, axis) => high - (model.low[axis] ?? 0)));
  return Number.isFinite(size) && size > 0 ? size : 1;
}

/** A length with as many digits as single precision bears in a model of this size. */
export function formatLength(length: number, size: number): string {
  if (!Number.isFinite(length)) return 'unknown';
  const decimals = 5 - Math.floor(Math.log10(size));
  if (decimals > 12 || decimals < -9) return length === 0 ? '0' : length.toPrecision(6);
  const text = length.toFixed(Math.max(decimals, 0));
  const short = text.includes('.') ? text.replace(/\.?0+$/, '') : text;
  return short === '-0' ? '0' : short;
}

/** "MM" as "mm"; other units as the file names them. */
export function unitsOf(model: Model): string {
  return model.units === '' ? 'units' : model.units.toLowerCase();
}

/** "126 Rational B-Spline Curve (DE 41)". */
export function entityTitle(entity: Entity): string {
  return `${entity.type} ${entity.typeName} (DE ${entity.de})`;
}

export function colourHex(colour: number): string {
  return `#${colour.toString(16).padStart(6, '0')}`;
}

// How far items reach.
import type { Model } from './model.ts';

/** Calls with every point of an item: of its areas, lines and texts. */
export type EachPoint = (item: number, visit: (x: number, y: number, z: number) => void) => void;

export function pointsOf(model: Model): EachPoint {
  const texts = new Map<number, number[]>();
  model.texts.forEach((text, i) => {
    const of = texts.get(text.item);
    if (of) of.push(i);
    else texts.set(text.item, [i]);
  });
  const walk = (values: Float32Array, first: number, end: number, visit: (x: number, y: number, z: number) => void) => {
    for (let i = first * 3; i < end * 3; i += 3) visit(values[i] ?? 0, values[i + 1] ?? 0, values[i + 2] ?? 0);
  };
  return (index, visit) => {
    const item = model.items[index];
    if (!item) return;
    walk(model.points, item.points[0], item.points[1], visit);
    walk(model.linePoints, model.lineStarts[item.lines[0]] ?? 0, model.lineStarts[item.lines[1]] ?? 0, visit);
    for (const i of texts.get(index) ?? []) {
      const text = model.texts[i];
      if (!text) continue;
      const { start, along, up } = text;
      visit(start[0], start[1], start[2]);
      visit(start[0] + along[0] + up[0], start[1] + along[1] + up[1], start[2] + along[2] + up[2]);
    }
  };
}

/** The radius of the smallest sphere about the origin that holds these items; 0 for none. */
export function radiusOf(points: EachPoint, items: Iterable<number>): number {
  let square = 0;
  for (const item of items) points(item, (x, y, z) => (square = Math.max(square, x * x + y * y + z * z)));
  return Math.sqrt(square);
}

// The plane of a section as the shaders want it.
import { Vector4 } from 'three';
import type { Model } from './model.ts';
import type { Section } from './store.ts';

/** What lies where xyz · point > w is cut away, in model units from the middle of the box. */
export function sectionPlane(model: Model, section: Section | null): Vector4 {
  if (!section) return new Vector4(0, 0, 0, 1);
  const axis = ['x', 'y', 'z'].indexOf(section.axis);
  const half = ((model.high[axis] ?? 0) - (model.low[axis] ?? 0)) / 2;
  const sign = section.flipped ? -1 : 1;
  const plane = new Vector4(0, 0, 0, sign * half * (2 * section.position - 1));
  return plane.setComponent(axis, sign);
}

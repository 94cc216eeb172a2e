// The point of the model that a click in measuring means.
import { Ray, Vector3 } from 'three';
import type { Model } from './model.ts';
import type { Hit } from './picking.ts';

/** Pixels of the picture of a point of the model. */
export type Project = (point: Vector3, into: Vector3) => Vector3;

interface Best {
  readonly point: Vector3;
  distance: number;
}

const at = (values: Float32Array, index: number, into: Vector3) => into.fromArray(values, index * 3);

/** The nearest end of a line, or point, within `radius` pixels; else the nearest place on a line; else on the surface. */
export function snap(
  model: Model,
  hits: readonly Hit[],
  project: Project,
  place: readonly [number, number],
  radius: number,
  ray: Ray,
  kept: (point: Vector3) => boolean,
): Vector3 | null {
  const ends: Best = { point: new Vector3(), distance: radius };
  const along: Best = { point: new Vector3(), distance: radius };
  for (const hit of hits) if (hit.isLine) approach(model, hit.item, project, place, ends, along, kept);
  if (ends.distance < radius) return ends.point;
  if (along.distance < radius) return along.point;
  const area = hits.find((hit) => !hit.isLine);
  return area ? onSurface(model, area.item, ray, kept) : null;
}

function approach(
  model: Model,
  index: number,
  project: Project,
  [x, y]: readonly [number, number],
  ends: Best,
  along: Best,
  kept: (point: Vector3) => boolean,
): void {
  const item = model.items[index];
  if (!item) return;
  const [from, to, a, b] = [new Vector3(), new Vector3(), new Vector3(), new Vector3()];
  const take = (best: Best, point: Vector3, distance: number) => {
    if (distance >= best.distance || !kept(point)) return;
    best.distance = distance;
    best.point.copy(point);
  };
  const offer = (points: Float32Array, i: number) => {
    project(at(points, i, from), a);
    take(ends, from, Math.hypot(a.x - x, a.y - y));
  };
  if (item.kind === 'point') for (let i = item.points[0]; i < item.points[1]; ++i) offer(model.points, i);
  for (let line = item.lines[0]; line < item.lines[1]; ++line) {
    const first = model.lineStarts[line] ?? 0;
    const last = (model.lineStarts[line + 1] ?? first) - 1;
    if (last < first) continue;
    offer(model.linePoints, first);
    offer(model.linePoints, last);
    for (let i = first; i < last; ++i) {
      project(at(model.linePoints, i, from), a);
      project(at(model.linePoints, i + 1, to), b);
      const [dx, dy] = [b.x - a.x, b.y - a.y];
      const square = dx * dx + dy * dy;
      const part = square > 0 ? Math.min(1, Math.max(0, ((x - a.x) * dx + (y - a.y) * dy) / square)) : 0;
      take(along, from.lerp(to, part), Math.hypot(a.x + dx * part - x, a.y + dy * part - y));
    }
  }
}

function onSurface(model: Model, index: number, ray: Ray, kept: (point: Vector3) => boolean): Vector3 | null {
  const item = model.items[index];
  if (!item) return null;
  const corners = [new Vector3(), new Vector3(), new Vector3()] as const;
  const found = new Vector3();
  const nearest = new Vector3();
  let distance = Infinity;
  for (let triangle = item.triangles[0]; triangle < item.triangles[1]; ++triangle) {
    corners.forEach((corner, i) => at(model.points, model.triangles[triangle * 3 + i] ?? 0, corner));
    if (!ray.intersectTriangle(...corners, false, found) || !kept(found)) continue;
    const far = found.distanceToSquared(ray.origin);
    if (far >= distance) continue;
    distance = far;
    nearest.copy(found);
  }
  return distance < Infinity ? nearest : null;
}

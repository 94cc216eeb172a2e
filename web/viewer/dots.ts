// Points as small discs.
import { BufferAttribute, BufferGeometry, Points } from 'three';
import { CHOSEN, DEPENDENT, FAINT, PLAIN } from './colours.ts';
import type { Layer } from './layer.ts';
import { layer, ORDER } from './layer.ts';
import type { Model } from './model.ts';
import type { Shader, Uniforms } from './shaders.ts';
import { drawing, LINE, picking } from './shaders.ts';

const SHADER: Shader = {
  vertex: `
in vec3 position;
in uint item;
uniform float pixel;
uniform float width;
void main() {
  gl_PointSize = width * pixel;
  if (!takes(item)) return;
  at = position;
  gl_Position = projectionMatrix * (modelViewMatrix * vec4(position, 1.0));
}`,
  fragment: `
bool inside_shape() { return length(gl_PointCoord - 0.5) <= 0.5; }
vec4 shade() { return colour; }`,
};

export function makeDots(model: Model, points: BufferGeometry, uniforms: Uniforms): Layer[] {
  const index: number[] = [];
  for (const item of model.items) {
    if (item.kind !== 'point') continue;
    for (let point = item.points[0]; point < item.points[1]; ++point) index.push(point);
  }
  if (index.length === 0) return [];
  const geometry = new BufferGeometry();
  geometry.attributes = points.attributes;
  geometry.setIndex(index);
  const dots = (levels: [number, number], width: number, more: object) =>
    new Points(geometry, drawing(uniforms, SHADER, levels, { own: { width: { value: width } }, ...more }));
  const plain = dots([FAINT, PLAIN], 5, { transparent: true });
  const marked = dots([DEPENDENT, CHOSEN], 9, { transparent: true, depthTest: false });
  return [layer(plain, ORDER.lines, picking(plain.material, SHADER, LINE)), layer(marked, ORDER.chosen, null)];
}

/** The two ends of what is measured. */
export class MeasuredEnds {
  readonly layer: Layer;
  readonly #position: BufferAttribute;

  constructor(item: number, uniforms: Uniforms) {
    const geometry = new BufferGeometry();
    this.#position = new BufferAttribute(new Float32Array(6), 3);
    geometry.setAttribute('position', this.#position);
    geometry.setAttribute('item', new BufferAttribute(new Uint32Array([item, item]), 1));
    const material = drawing(uniforms, SHADER, [PLAIN, PLAIN], {
      own: { width: { value: 9 } },
      transparent: true,
      depthTest: false,
    });
    this.layer = layer(new Points(geometry, material), ORDER.marks, null);
  }

  move(from: readonly number[], to: readonly number[]): void {
    this.#position.set([...from, ...to]);
    this.#position.needsUpdate = true;
  }
}

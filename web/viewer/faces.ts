// All triangles, in one buffer; three passes: solid, faint, and what is chosen through all else.
import { BufferAttribute, BufferGeometry, DoubleSide, Mesh } from 'three';
import { CHOSEN, FAINT, PLAIN } from './colours.ts';
import type { Layer } from './layer.ts';
import { layer, ORDER } from './layer.ts';
import type { Model } from './model.ts';
import type { Shader, Uniforms } from './shaders.ts';
import { AREA, drawing, picking } from './shaders.ts';

const SHADER: Shader = {
  vertex: `
in vec3 position;
in vec3 normal;
in uint item;
out vec3 across;
void main() {
  if (!takes(item)) return;
  at = position;
  across = mat3(modelViewMatrix) * normal;
  gl_Position = projectionMatrix * (modelViewMatrix * vec4(position, 1.0));
}`,
  fragment: `
uniform vec4 inside;
in vec3 across;
bool inside_shape() { return true; }
vec4 shade() {
  float len = length(across);
  if (len == 0.0) return colour;
  vec3 n = across / len;
  if (n.z < 0.0) n = -n;
  vec3 plain = gl_FrontFacing ? colour.rgb : mix(colour.rgb, inside.rgb, inside.a);
  float light = 0.5 + 0.54 * max(0.0, dot(n, vec3(-0.28, 0.36, 0.89)));
  float gleam = 0.12 * pow(max(0.0, dot(n, vec3(-0.14, 0.19, 0.97))), 24.0);
  // What is black has a form, too.
  plain = max(plain, vec3(0.09));
  return vec4(min(plain * light + gleam, 1.0), colour.a);
}`,
};

/** The item of every point. */
function itemsOf(model: Model): Uint32Array {
  const items = new Uint32Array(model.points.length / 3);
  model.items.forEach((item, i) => items.fill(i, item.points[0], item.points[1]));
  return items;
}

export function facesGeometry(model: Model): BufferGeometry {
  const geometry = new BufferGeometry();
  geometry.setAttribute('position', new BufferAttribute(model.points, 3));
  geometry.setAttribute('normal', new BufferAttribute(model.normals, 3, true));
  geometry.setAttribute('item', new BufferAttribute(itemsOf(model), 1));
  return geometry;
}

export function makeFaces(model: Model, points: BufferGeometry, uniforms: Uniforms): Layer[] {
  const geometry = new BufferGeometry();
  geometry.attributes = points.attributes;
  geometry.setIndex(new BufferAttribute(model.triangles, 1));
  // The faces stand back a little, so that the lines on them are seen.
  const common = { side: DoubleSide, polygonOffset: true, polygonOffsetFactor: 1, polygonOffsetUnits: 2 };
  const mesh = (levels: [number, number], more: object) =>
    new Mesh(geometry, drawing(uniforms, SHADER, levels, { ...common, ...more }));

  const solid = mesh([PLAIN, CHOSEN], {});
  const faint = mesh([FAINT, FAINT], { transparent: true, depthWrite: false });
  const through = mesh([CHOSEN, CHOSEN], { transparent: true, depthTest: false, depthWrite: false, opacity: 0.2 });
  return [
    layer(solid, ORDER.faces, picking(solid.material, SHADER, AREA), true),
    layer(faint, ORDER.faint, null, true),
    layer(through, ORDER.chosen, null, true),
  ];
}

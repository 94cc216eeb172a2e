// Polylines as strips of a width in pixels, six corners a segment. The corners find their points in a texture: an instance
// a segment would cost a renderer in software a whole call of drawing each.
import { BufferGeometry, DataTexture, DoubleSide, FloatType, Mesh, RGBAFormat } from 'three';
import { CHOSEN, DEPENDENT, FAINT, PLAIN } from './colours.ts';
import type { Layer } from './layer.ts';
import { layer, ORDER } from './layer.ts';
import type { Model } from './model.ts';
import type { Shader, Uniforms } from './shaders.ts';
import { drawing, LINE, picking } from './shaders.ts';

/** In place of an item: of a point behind which a polyline ends. */
const LAST = -1;
const WIDTH = 2048;

const SHADER: Shader = {
  vertex: `
uniform sampler2D points;
uniform vec2 viewport;
uniform float pixel;
uniform float width;
uniform float nearer;
out float across;
const vec2 corners[6] =
  vec2[6](vec2(-1, -1), vec2(1, -1), vec2(1, 1), vec2(-1, -1), vec2(1, 1), vec2(-1, 1));
vec4 point(int number) {
  return texelFetch(points, ivec2(number % ${WIDTH}, number / ${WIDTH}), 0);
}
void main() {
  across = 0.0;
  vec4 start = point(gl_VertexID / 6);
  if (!takes(uint(max(start.w, 0.0))) || start.w < 0.0) {
    gl_Position = vec4(0.0, 0.0, 2.0, 1.0);
    return;
  }
  vec2 corner = corners[gl_VertexID % 6];
  vec3 end = point(gl_VertexID / 6 + 1).xyz;
  vec4 from = modelViewMatrix * vec4(start.xyz, 1.0);
  vec4 to = modelViewMatrix * vec4(end, 1.0);
  from.z += nearer;
  to.z += nearer;
  from = projectionMatrix * from;
  to = projectionMatrix * to;
  vec2 way = (to.xy - from.xy) * viewport;
  float len = length(way);
  way = len > 0.0 ? way / len : vec2(1.0, 0.0);
  at = corner.y < 0.0 ? start.xyz : end;
  gl_Position = corner.y < 0.0 ? from : to;
  // Half a pixel more on either side, where it fades.
  float whole = width * pixel;
  across = corner.x * (whole + 1.0) * 0.5;
  gl_Position.xy += (vec2(-way.y, way.x) * corner.x * (whole + 1.0) + way * corner.y * whole) / viewport;
}`,
  fragment: `
uniform float pixel;
uniform float width;
in float across;
bool inside_shape() { return true; }
vec4 shade() {
  float cover = clamp((width * pixel + 1.0) * 0.5 - abs(across), 0.0, 1.0);
  return vec4(colour.rgb, (colour.a < 1.0 ? 0.6 : 1.0) * cover);
}`,
};

/** Places three numbers a point, and its item behind them, in a texture. */
function textureOf(points: Float32Array, items: Int32Array): DataTexture {
  const height = Math.max(1, Math.ceil(items.length / WIDTH));
  const texels = new Float32Array(WIDTH * height * 4);
  items.forEach((item, i) => {
    texels[4 * i] = points[3 * i] ?? 0;
    texels[4 * i + 1] = points[3 * i + 1] ?? 0;
    texels[4 * i + 2] = points[3 * i + 2] ?? 0;
    texels[4 * i + 3] = item;
  });
  const texture = new DataTexture(texels, WIDTH, height, RGBAFormat, FloatType);
  texture.needsUpdate = true;
  return texture;
}

/** The corners of the segments between so many points; they have no attributes but their numbers. */
function corners(numPoints: number): BufferGeometry {
  const geometry = new BufferGeometry();
  geometry.setDrawRange(0, 6 * Math.max(0, numPoints - 1));
  return geometry;
}

function itemsOf(model: Model): Int32Array {
  const { lineStarts } = model;
  const items = new Int32Array(model.linePoints.length / 3).fill(LAST);
  model.items.forEach((item, i) => {
    for (let line = item.lines[0]; line < item.lines[1]; ++line) {
      const first = lineStarts[line] ?? 0;
      const end = lineStarts[line + 1] ?? first;
      if (end > first) items.fill(i, first, end - 1);
    }
  });
  return items;
}

/** `nearer` brings lines before the faces on which they lie as nearly as the tolerance wants. */
export function makeLines(model: Model, uniforms: Uniforms, nearer: number): Layer[] {
  const items = itemsOf(model);
  const geometry = corners(items.length);
  const points = { value: textureOf(model.linePoints, items) };
  const own = (width: number) => ({ points, width: { value: width }, nearer: { value: nearer } });
  const plain = new Mesh(
    geometry,
    drawing(uniforms, SHADER, [FAINT, PLAIN], { own: own(1.2), side: DoubleSide, transparent: true }),
  );
  const marked = new Mesh(
    geometry,
    drawing(uniforms, SHADER, [DEPENDENT, CHOSEN], {
      own: own(3.5),
      side: DoubleSide,
      transparent: true,
      depthTest: false,
    }),
  );
  return [layer(plain, ORDER.lines, picking(plain.material, SHADER, LINE)), layer(marked, ORDER.chosen, null)];
}

/** A line between two points that can be moved, before all else. */
export class MeasuredLine {
  readonly layer: Layer;
  readonly #points: DataTexture;

  constructor(item: number, uniforms: Uniforms) {
    this.#points = textureOf(new Float32Array(6), Int32Array.of(item, LAST));
    const own = { points: { value: this.#points }, width: { value: 2 }, nearer: { value: 0 } };
    const mesh = new Mesh(
      corners(2),
      drawing(uniforms, SHADER, [PLAIN, PLAIN], { own, side: DoubleSide, transparent: true, depthTest: false }),
    );
    this.layer = layer(mesh, ORDER.marks, null);
  }

  move(from: readonly number[], to: readonly number[]): void {
    const texels = this.#points.image.data as Float32Array;
    texels.set(from, 0);
    texels.set(to, 4);
    this.#points.needsUpdate = true;
  }
}

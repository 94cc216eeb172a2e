// The texts of notes, where they stand: one picture of all different texts, a rectangle of it a note.
import {
  BufferAttribute,
  CanvasTexture,
  DoubleSide,
  InstancedBufferAttribute,
  InstancedBufferGeometry,
  LinearFilter,
  LinearMipmapLinearFilter,
  Mesh,
} from 'three';
import { CHOSEN, FAINT } from './colours.ts';
import type { Layer } from './layer.ts';
import { layer, ORDER } from './layer.ts';
import type { Model, NoteText } from './model.ts';
import type { Shader, Uniforms } from './shaders.ts';
import { AREA, drawing, picking } from './shaders.ts';

const SIDE = 2048;
const MOST_TEXTS = 2000;
const MOST_LETTERS = 200;
const GAP = 4;
/** Heights as parts of a capital letter's: what lies below the base line and above the letter, and the font's size. */
const BELOW = 0.4;
const ABOVE = 0.4;
const FONT = 1.38;

const SHADER: Shader = {
  vertex: `
in vec2 position;
in vec3 start;
in vec3 along;
in vec3 up;
in vec4 part;
in uint item;
out vec2 where;
void main() {
  where = vec2(0.0);
  if (!takes(item)) return;
  bool behind = (mat3(modelViewMatrix) * cross(normalize(along), normalize(up))).z < 0.0;
  at = start + along * position.x + up * mix(-${BELOW}, 1.0 + ${ABOVE}, position.y);
  where = mix(part.xy, part.zw, vec2(behind ? 1.0 - position.x : position.x, position.y));
  gl_Position = projectionMatrix * (modelViewMatrix * vec4(at, 1.0));
}`,
  fragment: `
uniform sampler2D texts;
in vec2 where;
bool inside_shape() { return true; }
vec4 shade() { return vec4(colour.rgb, colour.a * texture(texts, where).a); }`,
};

type Rectangle = readonly [number, number, number, number];

const cropped = (text: string) => (text.length > MOST_LETTERS ? `${text.slice(0, MOST_LETTERS - 1)}…` : text);
const length = (v: readonly [number, number, number]) => Math.hypot(...v);

/** Puts texts side by side in rows; null when they do not fit at this size. */
function rows(widths: readonly number[], letter: number): Rectangle[] | null {
  const height = Math.ceil(letter * (1 + BELOW + ABOVE));
  const places: Rectangle[] = [];
  let x = GAP;
  let y = GAP;
  for (const width of widths) {
    const wide = Math.min(Math.ceil(width * letter), SIDE - 2 * GAP);
    if (x + wide + GAP > SIDE) {
      x = GAP;
      y += height + GAP;
    }
    if (y + height + GAP > SIDE) return null;
    places.push([x, y, x + wide, y + height]);
    x += wide + GAP;
  }
  return places;
}

/** Draws the texts white on nothing; those at the end are left out where there are too many. */
function drawTexts(canvas: HTMLCanvasElement, texts: readonly string[]): Map<string, Rectangle> {
  canvas.width = canvas.height = SIDE;
  const context = canvas.getContext('2d');
  const found = new Map<string, Rectangle>();
  if (!context) return found;
  const unit = 64;
  context.font = `${unit * FONT}px sans-serif`;
  const widths = texts.map((text) => Math.max(context.measureText(text).width / unit, 0.1));
  let letter = unit;
  let places = rows(widths, letter);
  while (!places && letter > 10) places = rows(widths, (letter = Math.floor(letter * 0.8)));
  if (!places) return texts.length > 1 ? drawTexts(canvas, texts.slice(0, texts.length >> 1)) : found;

  context.font = `${letter * FONT}px sans-serif`;
  context.fillStyle = 'white';
  texts.forEach((text, i) => {
    const place = places[i];
    if (!place) return;
    context.fillText(text, place[0], place[3] - BELOW * letter, place[2] - place[0]);
    found.set(text, [place[0] / SIDE, 1 - place[3] / SIDE, place[2] / SIDE, 1 - place[1] / SIDE]);
  });
  return found;
}

function quads(notes: readonly NoteText[], places: Map<string, Rectangle>): InstancedBufferGeometry {
  const geometry = new InstancedBufferGeometry();
  geometry.setAttribute('position', new BufferAttribute(new Float32Array([0, 0, 1, 0, 1, 1, 0, 1]), 2));
  geometry.setIndex([0, 1, 2, 0, 2, 3]);
  const put = (name: string, values: Float32Array | Uint32Array, size: number) =>
    geometry.setAttribute(name, new InstancedBufferAttribute(values, size));
  put('start', new Float32Array(notes.flatMap((note) => note.start)), 3);
  put('along', new Float32Array(notes.flatMap((note) => note.along)), 3);
  put('up', new Float32Array(notes.flatMap((note) => note.up)), 3);
  put('part', new Float32Array(notes.flatMap((note) => places.get(cropped(note.text)) ?? [0, 0, 0, 0])), 4);
  put('item', new Uint32Array(notes.map((note) => note.item)), 1);
  geometry.instanceCount = notes.length;
  return geometry;
}

export function makeNotes(model: Model, uniforms: Uniforms): Layer[] {
  const largest = model.texts
    .filter((note) => note.text.trim() !== '' && length(note.up) > 0 && length(note.along) > 0)
    .sort((a, b) => length(b.up) - length(a.up));
  const texts = [...new Set(largest.map((note) => cropped(note.text)))].slice(0, MOST_TEXTS);
  if (texts.length === 0) return [];
  const canvas = document.createElement('canvas');
  const places = drawTexts(canvas, texts);
  const notes = largest.filter((note) => places.has(cropped(note.text)));
  const texture = new CanvasTexture(canvas);
  texture.generateMipmaps = true;
  texture.minFilter = LinearMipmapLinearFilter;
  texture.magFilter = LinearFilter;
  texture.anisotropy = 4;
  const mesh = new Mesh(
    quads(notes, places),
    drawing(uniforms, SHADER, [FAINT, CHOSEN], {
      own: { texts: { value: texture } },
      side: DoubleSide,
      transparent: true,
      depthWrite: false,
    }),
  );
  return [layer(mesh, ORDER.texts, picking(mesh.material, SHADER, AREA))];
}

// How every item is drawn at present: its colour and its level, four bytes an item, which the shaders look up.
import type { Item, Model } from './model.ts';
import type { State } from './store.ts';

/** Levels, in the fourth byte. */
export const HIDDEN = 0;
export const FAINT = 1;
export const PLAIN = 2;
export const DEPENDENT = 3;
export const CHOSEN = 4;

export interface Palette {
  readonly background: number;
  /** Of lines without a colour; lines that would hardly be seen in their own get part of it. */
  readonly foreground: number;
  readonly face: number;
  readonly unchanged: number;
  readonly chosen: number;
  readonly dependent: number;
  readonly mark: number;
}

const LIGHT: Palette = {
  background: 0xf5f7f9,
  foreground: 0x1c2733,
  face: 0xb4c2cf,
  unchanged: 0x8a939c,
  chosen: 0x0a6cff,
  dependent: 0x7fb2f7,
  mark: 0xb3007d,
};
const DARK: Palette = {
  background: 0x15191e,
  foreground: 0xe8edf2,
  face: 0x7d90a3,
  unchanged: 0x9aa4ae,
  chosen: 0x3d9bff,
  dependent: 0x2f6199,
  mark: 0xff6fd0,
};
const LEAST_CONTRAST = 2.5;
const CHANGES = { added: 0x2da44e, removed: 0xe5484d, changed: 0xf0883e };

export const palette = (dark: boolean): Palette => (dark ? DARK : LIGHT);

function nearly(a: number, b: number): boolean {
  const part = (shift: number) => ((a >> shift) & 255) - ((b >> shift) & 255);
  return part(16) ** 2 + part(8) ** 2 + part(0) ** 2 < 48 ** 2;
}

/** As the eye has it, from 0 to 1. */
function luminance(colour: number): number {
  const part = (shift: number) => {
    const value = ((colour >> shift) & 255) / 255;
    return value <= 0.04045 ? value / 12.92 : ((value + 0.055) / 1.055) ** 2.4;
  };
  return 0.2126 * part(16) + 0.7152 * part(8) + 0.0722 * part(0);
}

function contrast(a: number, b: number): number {
  const [low = 0, high = 0] = [luminance(a), luminance(b)].sort((x, y) => x - y);
  return (high + 0.05) / (low + 0.05);
}

function mixed(a: number, b: number, share: number): number {
  const part = (shift: number) => {
    const value = (a >> shift) & 255;
    return Math.round(value + (((b >> shift) & 255) - value) * share) << shift;
  };
  return part(16) | part(8) | part(0);
}

/** The colour, with as much of the foreground as a thin line of it needs to be seen. */
export function readable(colour: number, { background, foreground }: Palette): number {
  for (let share = 0; share < 1; share += 0.1) {
    const tried = mixed(colour, foreground, share);
    if (contrast(tried, background) >= LEAST_CONTRAST) return tried;
  }
  return foreground;
}

export interface Drawn {
  readonly faces: number;
  readonly triangles: number;
  readonly lines: number;
}

/** Fills in the bytes of a state, four an item, and one item more for the marks of measuring. */
export class Painter {
  readonly bytes: Uint8Array;
  readonly #comparing: boolean;
  readonly #readables = new Map<number, number>();
  #readableIn = LIGHT;
  /** Whether there is something at a level: of lines, points and texts, and of triangles. */
  #levels: [boolean[], boolean[]] = [[], []];

  constructor(readonly model: Model) {
    this.bytes = new Uint8Array((model.items.length + 1) * 4);
    this.#comparing = model.oldTitle !== '';
  }

  /** True when some item that has triangles, or may have lines, points and texts, is drawn between these levels. */
  has(isArea: boolean, [low, high]: readonly [number, number]): boolean {
    return this.#levels[isArea ? 1 : 0].some((has, level) => has && level >= low && level <= high);
  }

  paint(state: State): Drawn {
    const colours = palette(state.dark);
    const { items } = this.model;
    let faces = 0;
    let triangles = 0;
    let lines = 0;
    this.#levels = [[], []];
    items.forEach((item, i) => {
      const level = this.#level(item, i, state);
      this.#put(i, this.#colour(item, colours, state), level);
      if (level === HIDDEN) return;
      if (item.kind === 'face') ++faces;
      triangles += item.triangles[1] - item.triangles[0];
      lines += item.lines[1] - item.lines[0];
    });
    this.#mark(state.dependents, state, colours.dependent, DEPENDENT);
    this.#mark(state.chosen, state, colours.chosen, CHOSEN);
    this.#put(items.length, colours.mark, PLAIN);
    return { faces, triangles, lines };
  }

  #level(item: Item, index: number, state: State): number {
    if (state.shown[index] !== 1) return HIDDEN;
    if (item.kind === 'face' && state.shading === 'wireframe') return HIDDEN;
    if (item.kind === 'edge' && state.shading === 'shaded') return HIDDEN;
    return this.#comparing && item.change === 'none' ? FAINT : PLAIN;
  }

  #colour(item: Item, colours: Palette, state: State): number {
    if (this.#comparing) return item.change === 'none' ? colours.unchanged : CHANGES[item.change];
    if (item.kind === 'face') return item.colour < 0 ? colours.face : item.colour;
    const ink = item.colour < 0 ? colours.foreground : this.#readable(item.colour, colours);
    const inks = state.shading === 'both' ? [ink, colours.foreground, colours.background] : [ink];
    return inks.find((one) => !this.#isLostOnItsFaces(item, one)) ?? ink;
  }

  #readable(colour: number, colours: Palette): number {
    if (this.#readableIn !== colours) this.#readables.clear();
    this.#readableIn = colours;
    const known = this.#readables.get(colour) ?? readable(colour, colours);
    this.#readables.set(colour, known);
    return known;
  }

  #isLostOnItsFaces(edge: Item, ink: number): boolean {
    return edge.faces.some((face) => {
      const colour = this.model.items[face]?.colour ?? -1;
      return colour >= 0 && nearly(ink, colour);
    });
  }

  #mark(items: readonly number[], state: State, colour: number, level: number): void {
    for (const i of items) {
      if (state.shown[i] !== 1) continue;
      const unseen = state.shading === 'wireframe' && this.model.items[i]?.kind === 'face';
      this.#put(i, colour, unseen ? FAINT : level);
    }
  }

  #put(index: number, colour: number, level: number): void {
    const item = this.model.items[index];
    if (item && item.triangles[1] > item.triangles[0]) this.#levels[1][level] = true;
    if (item?.kind !== 'face') this.#levels[0][level] = true;
    this.bytes.set([colour >> 16, (colour >> 8) & 255, colour & 255, level], index * 4);
  }
}

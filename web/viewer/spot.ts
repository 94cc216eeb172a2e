// A ring about what was chosen where that is too small to be seen.
import { Box3, Vector3 } from 'three';
import { make } from './dom.ts';
import type { EachPoint } from './extent.ts';

/** In pixels; what is larger needs no ring. */
const SMALL = 6;

export class Spot {
  readonly #element = make('div', { class: 'spot', hidden: true });
  readonly #box = new Box3();

  constructor(
    host: HTMLElement,
    readonly points: EachPoint,
  ) {
    host.append(this.#element);
  }

  choose(items: readonly number[]): void {
    const point = new Vector3();
    this.#box.makeEmpty();
    for (const item of items) this.points(item, (x, y, z) => this.#box.expandByPoint(point.set(x, y, z)));
  }

  /** `project` gives pixels of the picture, `pixels` how many of them a unit of the model takes. */
  place(project: (point: Vector3, into: Vector3) => Vector3, pixels: number): void {
    const size = this.#box.getSize(new Vector3()).length() * pixels;
    const isSeen = this.#box.isEmpty() || size > SMALL;
    this.#element.hidden = isSeen;
    if (isSeen) return;
    const at = project(this.#box.getCenter(new Vector3()), new Vector3());
    this.#element.style.transform = `translate(${at.x}px, ${at.y}px)`;
  }
}

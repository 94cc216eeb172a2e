// The camera, which looks in parallel lines, as drawings do, and the ways in which it is moved.
import { OrthographicCamera, Vector3 } from 'three';
import { OrbitControls } from 'three/addons/controls/OrbitControls.js';
import type { EachPoint } from './extent.ts';
import type { View } from './stage_interface.ts';

/** The radius of the model in the camera's world: so large that the controls notice the smallest movement. */
export const WORLD = 1e5;
const DISTANCE = 4 * WORLD;
const DURATION = 280;

/** How much more than what it frames a view shows, and the least that it frames, as a part of the model. */
interface Frame {
  readonly margin: number;
  readonly least: number;
}
const WHOLE: Frame = { margin: 1.1, least: 0.01 };
const PART: Frame = { margin: 2, least: 0.06 };

/** Where the camera stands, seen from the model. */
const VIEWS: Record<View, readonly [number, number, number]> = {
  front: [0, -1, 0],
  back: [0, 1, 0],
  left: [-1, 0, 0],
  right: [1, 0, 0],
  top: [0, 0, 1],
  bottom: [0, 0, -1],
  isometric: [1, -1, 1],
};

/** A direction as angles about z (0 is front) and from it. */
interface Pose {
  readonly around: number;
  readonly polar: number;
  readonly target: Vector3;
  readonly zoom: number;
}

export class Camera {
  readonly lens = new OrthographicCamera(-1, 1, 1, -1, 0, 1);
  readonly #controls: OrbitControls;
  #flight = 0;
  #aspect = 1;
  #height = 1;
  #isMoved = false;
  #isPlacing = false;

  constructor(
    canvas: HTMLCanvasElement,
    readonly points: EachPoint,
    /** World units a model unit. */
    readonly scale: number,
    readonly moved: () => void,
  ) {
    this.lens.up.set(0, 0, 1);
    this.#controls = new OrbitControls(this.lens, canvas);
    this.#controls.zoomToCursor = true;
    this.#controls.minZoom = 0.02;
    this.#controls.maxZoom = 1e5;
    this.#controls.addEventListener('change', () => {
      this.#isMoved ||= !this.#isPlacing;
      moved();
    });
    this.#controls.addEventListener('start', () => cancelAnimationFrame(this.#flight));
  }

  dispose(): void {
    cancelAnimationFrame(this.#flight);
    this.#controls.dispose();
  }

  /** True once it does not show the whole model any more, as it was asked to at first. */
  get isMoved(): boolean {
    return this.#isMoved;
  }

  /** Looks in this direction of the model at first. */
  start(direction: readonly [number, number, number]): void {
    const [x, y, z] = direction.map((part) => -part);
    this.#put({ ...angles(x ?? 0, y ?? 0, z ?? 0), target: new Vector3(), zoom: 1 });
  }

  resize(width: number, height: number): void {
    this.#height = height;
    this.#aspect = width / height;
    this.lens.left = -this.#aspect * WORLD;
    this.lens.right = this.#aspect * WORLD;
    this.lens.top = WORLD;
    this.lens.bottom = -WORLD;
  }

  /** Near and far planes about all that is drawn, which reaches this far from the origin, in world units. */
  enclose(reach: number): void {
    const away = new Vector3(0, 0, 1).transformDirection(this.lens.matrixWorld).dot(this.lens.position);
    const margin = 1.02 * reach + 0.01 * WORLD;
    this.lens.near = away - margin;
    this.lens.far = away + margin;
    this.lens.updateProjectionMatrix();
  }

  /** Fills the view with these items. */
  fit(items: Iterable<number>, animated: boolean): void {
    const { around, polar } = this.#pose();
    this.#frame(items, around, polar, WHOLE, animated);
    this.#isMoved = false;
  }

  /** Shows these items and what is about them. */
  approach(items: Iterable<number>): void {
    this.#isMoved = true;
    const { around, polar } = this.#pose();
    this.#frame(items, around, polar, PART, true);
  }

  look(view: View, items: Iterable<number>): void {
    const { around, polar } = angles(...VIEWS[view]);
    this.#frame(items, around, polar, WHOLE, true);
    this.#isMoved = false;
  }

  turn(right: number, up: number): void {
    this.#interrupt();
    this.#controls.rotateLeft(-right);
    this.#controls.rotateUp(up);
  }

  pan(right: number, up: number): void {
    this.#interrupt();
    this.#controls.pan(-right * this.#height, up * this.#height);
  }

  zoom(factor: number): void {
    this.#interrupt();
    this.lens.zoom = Math.min(Math.max(this.lens.zoom * factor, this.#controls.minZoom), this.#controls.maxZoom);
    this.moved();
  }

  /** How many pixels a model unit takes. */
  get pixels(): number {
    return (this.scale * this.lens.zoom * this.#height) / (2 * WORLD);
  }

  /** For tests: position and target in model units, and zoom. */
  get description(): string {
    const rounded = (v: Vector3) => v.toArray().map((part) => Number((part / this.scale).toPrecision(5)));
    return JSON.stringify({
      position: rounded(this.lens.position),
      target: rounded(this.#controls.target),
      zoom: Number(this.lens.zoom.toPrecision(5)),
    });
  }

  #interrupt(): void {
    cancelAnimationFrame(this.#flight);
    this.#isMoved = true;
  }

  #pose(): Pose {
    const { target } = this.#controls;
    const away = this.lens.position.clone().sub(target);
    return { ...angles(away.x, away.y, away.z), target: target.clone(), zoom: this.lens.zoom };
  }

  #put(pose: Pose): void {
    const { around, polar, target, zoom } = pose;
    this.#controls.target.copy(target);
    this.lens.position.copy(away(around, polar)).multiplyScalar(DISTANCE).add(target);
    this.lens.zoom = zoom;
    this.#isPlacing = true;
    this.#controls.update();
    this.#isPlacing = false;
    this.moved();
  }

  #frame(items: Iterable<number>, around: number, polar: number, frame: Frame, animated: boolean): void {
    const out = away(around, polar);
    const right = new Vector3(Math.cos(around), Math.sin(around), 0);
    const up = new Vector3().crossVectors(out, right);
    const low = [Infinity, Infinity, Infinity];
    const high = [-Infinity, -Infinity, -Infinity];
    const axes = [right, up, out].map((axis) => axis.toArray());
    for (const item of items) {
      this.points(item, (x, y, z) => {
        for (let i = 0; i < 3; ++i) {
          const axis = axes[i] ?? [0, 0, 0];
          const value = axis[0] * x + axis[1] * y + axis[2] * z;
          if (value < (low[i] ?? 0)) low[i] = value;
          if (value > (high[i] ?? 0)) high[i] = value;
        }
      });
    }
    const middle = low.map((value, i) => ((value + (high[i] ?? 0)) / 2) * this.scale);
    if (!middle.every(Number.isFinite)) return;
    const half = low.map((value, i) => (((high[i] ?? 0) - value) / 2) * this.scale);
    const target = new Vector3();
    [right, up, out].forEach((axis, i) => target.addScaledVector(axis, middle[i] ?? 0));
    const reach = Math.max((half[0] ?? 0) / this.#aspect, half[1] ?? 0, WORLD * frame.least) * frame.margin;
    this.#fly({ around, polar, target, zoom: Math.min(WORLD / reach, this.#controls.maxZoom) }, animated);
  }

  #fly(to: Pose, animated: boolean): void {
    cancelAnimationFrame(this.#flight);
    if (!animated || matchMedia('(prefers-reduced-motion: reduce)').matches) return this.#put(to);
    const from = this.#pose();
    const turn = Math.atan2(Math.sin(to.around - from.around), Math.cos(to.around - from.around));
    const begun = performance.now();
    const step = () => {
      const part = Math.min(1, (performance.now() - begun) / DURATION);
      const eased = part * part * (3 - 2 * part);
      if (part >= 1) return this.#put(to);
      this.#put({
        around: from.around + turn * eased,
        polar: from.polar + (to.polar - from.polar) * eased,
        target: from.target.clone().lerp(to.target, eased),
        zoom: from.zoom * (to.zoom / from.zoom) ** eased,
      });
      this.#flight = requestAnimationFrame(step);
    };
    step();
  }
}

/** Never quite along z, where the camera would not know which way is up. */
function angles(x: number, y: number, z: number): { around: number; polar: number } {
  const flat = Math.hypot(x, y);
  const polar = Math.atan2(flat, z);
  return {
    around: flat > 1e-4 * Math.abs(z) ? Math.atan2(x, -y) : 0,
    polar: Math.min(Math.max(polar, 1e-5), Math.PI - 1e-5),
  };
}

function away(around: number, polar: number): Vector3 {
  const flat = Math.sin(polar);
  return new Vector3(flat * Math.sin(around), -flat * Math.cos(around), Math.cos(polar));
}

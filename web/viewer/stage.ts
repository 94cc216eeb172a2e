// The picture: draws what the store says, and tells it what was clicked.
import { Color, Group, Ray, Scene, Vector2, Vector3, WebGLRenderer } from 'three';
import { Camera, WORLD } from './camera.ts';
import { Painter, palette } from './colours.ts';
import { makeDots, MeasuredEnds } from './dots.ts';
import { pointsOf, radiusOf } from './extent.ts';
import { facesGeometry, makeFaces } from './faces.ts';
import type { Layer } from './layer.ts';
import { makeLines, MeasuredLine } from './lines.ts';
import { makeNotes } from './notes.ts';
import { Picker } from './picking.ts';
import { sectionPlane } from './section.ts';
import type { Uniforms } from './shaders.ts';
import { makeUniforms } from './shaders.ts';
import { snap } from './snapping.ts';
import { Spot } from './spot.ts';
import type { StageControls, View } from './stage_interface.ts';
import type { Change, Measure, Store } from './store.ts';

const CLICK = 5;
const NEAR = { mouse: 5, touch: 10 };
const SNAP = 10;
const INSIDE = new Color(0xd9822b);

export class Stage implements StageControls {
  readonly #renderer: WebGLRenderer;
  readonly #scene = new Scene();
  readonly #camera: Camera;
  readonly #painter: Painter;
  readonly #uniforms: Uniforms;
  readonly #layers: Layer[];
  readonly #line: MeasuredLine;
  readonly #ends: MeasuredEnds;
  readonly #spot: Spot;
  readonly #picker: Picker;
  readonly #points;
  readonly #scale: number;
  readonly #observer = new ResizeObserver(() => {
    this.#resize();
    if (!this.#camera.isMoved) this.#camera.fit(this.#shown(), false);
  });
  #reach = 0;
  /** The number by which the next picture is asked for; 0 where none is. */
  #awaited = 0;
  #pictures = 0;

  /** Throws where there is no WebGL 2. */
  constructor(
    readonly host: HTMLElement,
    readonly store: Store,
  ) {
    const { model } = store;
    this.#renderer = makeRenderer();
    const canvas = this.#renderer.domElement;
    this.#points = pointsOf(model);
    this.#scale = WORLD / (radiusOf(this.#points, model.items.keys()) || 1);
    this.#painter = new Painter(model);
    this.#uniforms = makeUniforms(model.items.length + 1);
    const marks = model.items.length;
    this.#line = new MeasuredLine(marks, this.#uniforms);
    this.#ends = new MeasuredEnds(marks, this.#uniforms);
    const areas = facesGeometry(model);
    this.#layers = [
      ...makeFaces(model, areas, this.#uniforms),
      ...makeLines(model, this.#uniforms, Math.min(model.chord * this.#scale, 0.002 * WORLD)),
      ...makeDots(model, areas, this.#uniforms),
      ...makeNotes(model, this.#uniforms),
      this.#line.layer,
      this.#ends.layer,
    ];
    const root = new Group();
    root.scale.setScalar(this.#scale);
    root.add(...this.#layers.map(({ object }) => object).sort((a, b) => a.renderOrder - b.renderOrder));
    this.#scene.add(root);
    this.#picker = new Picker(this.#renderer, this.#scene, this.#layers, this.#uniforms);

    host.append(canvas);
    this.#spot = new Spot(host, this.#points);
    this.#camera = new Camera(canvas, this.#points, this.#scale, () => this.#request());
    this.#camera.start(model.direction);
    this.#resize();
    this.#paint();
    this.#cut();
    this.#camera.fit(this.#shown(), false);

    this.#observer.observe(host);
    canvas.addEventListener('webglcontextrestored', () => this.#request());
    this.#listenToClicks(canvas);
    store.listen((_, change) => this.#follow(change));
  }

  fit(items?: readonly number[]): void {
    if (items?.length) this.#camera.approach(items);
    else this.#camera.fit(this.#shown(), true);
  }

  look(view: View): void {
    this.#camera.look(view, this.#shown());
  }

  turn(right: number, up: number): void {
    this.#camera.turn(right, up);
  }

  pan(right: number, up: number): void {
    this.#camera.pan(right, up);
  }

  zoom(factor: number): void {
    this.#camera.zoom(factor);
  }

  /** Gives back what the picture takes of the browser; nothing is to be asked of the stage after. */
  dispose(): void {
    this.#observer.disconnect();
    this.#camera.dispose();
    cancelAnimationFrame(this.#awaited);
    this.#renderer.dispose();
    this.#renderer.forceContextLoss();
  }

  *#shown(): Generator<number> {
    const { state } = this.store;
    for (const i of this.store.model.items.keys()) if (state.shown[i] === 1) yield i;
  }

  #chosen(): number[] {
    const { state } = this.store;
    return state.chosen.filter((item) => state.shown[item] === 1);
  }

  #follow(change: Change): void {
    const painted = ['chosen', 'dependents', 'shown', 'shading', 'dark'] as const;
    if (painted.some((key) => key in change)) this.#paint();
    if (change.chosen || change.shown) this.#spot.choose(this.#chosen());
    if ('section' in change || 'dark' in change) this.#cut();
    if (change.measure !== undefined) this.#measure(change.measure);
    this.#request();
  }

  #paint(): void {
    const { state } = this.store;
    const drawn = this.#painter.paint(state);
    for (const { object, isArea, levels } of this.#layers) object.visible = this.#painter.has(isArea, levels);
    this.#measure(state.measure);
    const { states } = this.#uniforms;
    (states.value.image.data as Uint8Array).set(this.#painter.bytes);
    states.value.needsUpdate = true;
    this.#scene.background = new Color(palette(state.dark).background);
    this.#reach = radiusOf(this.#points, this.#shown()) * this.#scale;
    const { dataset } = this.host;
    dataset['faces'] = String(drawn.faces);
    dataset['triangles'] = String(drawn.triangles);
    dataset['lines'] = String(drawn.lines);
  }

  #cut(): void {
    const { section } = this.store.state;
    this.#uniforms.section.value.copy(sectionPlane(this.store.model, section));
    this.#uniforms.inside.value.set(INSIDE.r, INSIDE.g, INSIDE.b, section && this.store.model.solid ? 0.75 : 0);
  }

  #measure(measure: Measure | null): void {
    this.#line.layer.object.visible = measure?.to != null;
    this.#ends.layer.object.visible = measure !== null;
    if (!measure) return;
    const from = this.#relative(measure.from);
    const to = measure.to ? this.#relative(measure.to) : from;
    this.#line.move(from, to);
    this.#ends.move(from, to);
  }

  #middle(): Vector3 {
    const { low, high } = this.store.model;
    return new Vector3(...low).add(new Vector3(...high)).multiplyScalar(0.5);
  }

  #relative(point: readonly [number, number, number]): number[] {
    return new Vector3(...point).sub(this.#middle()).toArray();
  }

  #resize(): void {
    const width = Math.max(1, this.host.clientWidth);
    const height = Math.max(1, this.host.clientHeight);
    const ratio = Math.min(devicePixelRatio, 2);
    const before = this.#renderer.getSize(new Vector2());
    // Observers tell of a size at first, too, and large models take long to draw.
    if (before.x === width && before.y === height && this.#renderer.getPixelRatio() === ratio) return;
    this.#renderer.setPixelRatio(ratio);
    this.#renderer.setSize(width, height);
    this.#camera.resize(width, height);
    this.#renderer.getDrawingBufferSize(this.#uniforms.viewport.value);
    this.#uniforms.pixel.value = this.#renderer.getPixelRatio();
    this.#request();
  }

  #request(): void {
    this.#awaited ||= requestAnimationFrame(() => {
      this.#awaited = 0;
      this.#draw();
    });
  }

  #draw(): void {
    if (this.#renderer.getContext().isContextLost()) return;
    this.#camera.lens.updateMatrixWorld();
    this.#camera.enclose(this.#reach);
    this.#renderer.render(this.#scene, this.#camera.lens);
    this.#spot.place(this.#project, this.#camera.pixels);
    const { dataset } = this.host;
    dataset['camera'] = this.#camera.description;
    dataset['pictures'] = String(++this.#pictures);
    dataset['ready'] = '';
  }

  #listenToClicks(canvas: HTMLCanvasElement): void {
    let down: PointerEvent | null = null;
    canvas.addEventListener('pointerdown', (event) => {
      // A second finger makes it no click.
      down = event.isPrimary && event.button === 0 ? event : null;
    });
    canvas.addEventListener('pointermove', (event) => {
      if (down && Math.hypot(event.clientX - down.clientX, event.clientY - down.clientY) > CLICK) down = null;
    });
    canvas.addEventListener('pointercancel', () => (down = null));
    canvas.addEventListener('pointerup', (event) => {
      if (down?.pointerId === event.pointerId) this.#click(event);
      down = null;
    });
  }

  #click(event: PointerEvent): void {
    const box = this.#renderer.domElement.getBoundingClientRect();
    const [x, y] = [event.clientX - box.left, event.clientY - box.top];
    if (this.store.state.measuring) this.#clickPoint(x, y);
    else this.#clickItem(x, y, event);
  }

  #hits(x: number, y: number, radius: number) {
    const { clientWidth, clientHeight } = this.#renderer.domElement;
    return this.#picker.pick(this.#camera.lens, x, y, [clientWidth, clientHeight], radius);
  }

  /** Pixels of the picture. */
  readonly #project = (point: Vector3, into: Vector3): Vector3 => {
    const { clientWidth, clientHeight } = this.#renderer.domElement;
    into.copy(point).multiplyScalar(this.#scale).project(this.#camera.lens);
    return into.set(((into.x + 1) / 2) * clientWidth, ((1 - into.y) / 2) * clientHeight, 0);
  };

  #clickItem(x: number, y: number, event: PointerEvent): void {
    const item = this.#hits(x, y, event.pointerType === 'touch' ? NEAR.touch : NEAR.mouse)[0]?.item;
    const { chosen } = this.store.state;
    const adds = event.shiftKey || event.ctrlKey || event.metaKey;
    if (item === undefined && adds) return;
    let next = item === undefined ? [] : [item];
    if (item !== undefined && adds) {
      next = chosen.includes(item) ? chosen.filter((one) => one !== item) : [...chosen, item];
    }
    this.store.set({ chosen: next, dependents: [], finding: -1, difference: -1 });
  }

  #clickPoint(x: number, y: number): void {
    const { lens } = this.#camera;
    const { clientWidth, clientHeight } = this.#renderer.domElement;
    const place = new Vector2((x / clientWidth) * 2 - 1, 1 - (y / clientHeight) * 2);
    const origin = new Vector3(place.x, place.y, -1).unproject(lens).divideScalar(this.#scale);
    const ray = new Ray(origin, new Vector3(0, 0, -1).transformDirection(lens.matrixWorld));
    const plane = this.#uniforms.section.value;
    const kept = (point: Vector3) => point.x * plane.x + point.y * plane.y + point.z * plane.z <= plane.w;
    const point = snap(this.store.model, this.#hits(x, y, SNAP), this.#project, [x, y], SNAP, ray, kept);
    if (!point) return;
    const found = point.add(this.#middle()).toArray();
    const { measure } = this.store.state;
    this.store.set({ measure: measure && !measure.to ? { from: measure.from, to: found } : { from: found, to: null } });
  }
}

function makeRenderer(): WebGLRenderer {
  const canvas = document.createElement('canvas');
  const context = canvas.getContext('webgl2', { antialias: true, alpha: false, powerPreference: 'high-performance' });
  if (!context) throw new Error('This browser draws no models, as it lacks WebGL 2.');
  const renderer = new WebGLRenderer({ canvas, context, antialias: true });
  // The order is ours; sorting would measure the buffers, which hold more than points.
  renderer.sortObjects = false;
  return renderer;
}

// What lies under a place of the picture: a few pixels about it are drawn with numbers for colours.
import { NearestFilter, NoBlending, WebGLRenderTarget } from 'three';
import type { OrthographicCamera, Scene, WebGLRenderer } from 'three';
import type { Layer } from './layer.ts';
import type { Uniforms } from './shaders.ts';
import { AREA, LINE } from './shaders.ts';

export interface Hit {
  readonly item: number;
  readonly isLine: boolean;
  /** In pixels. */
  readonly distance: number;
}

const RADIUS = 12;
const SIDE = 2 * RADIUS + 1;

export class Picker {
  readonly #target = new WebGLRenderTarget(SIDE, SIDE, {
    minFilter: NearestFilter,
    magFilter: NearestFilter,
    generateMipmaps: false,
  });
  readonly #pixels = new Uint8Array(SIDE * SIDE * 4);

  constructor(
    readonly renderer: WebGLRenderer,
    readonly scene: Scene,
    readonly layers: readonly Layer[],
    readonly uniforms: Uniforms,
  ) {
    for (const { picked } of layers) if (picked) picked.blending = NoBlending;
  }

  /** What is seen within `radius` pixels, at most 12, of a place in a view of this size; the nearest first, lines before
   * the face under the place itself. */
  pick(camera: OrthographicCamera, x: number, y: number, size: readonly [number, number], radius: number): Hit[] {
    this.#draw(camera, Math.round(x), Math.round(y), size);
    const nearest = new Map<number, number>();
    let area = -1;
    for (let row = 0; row < SIDE; ++row) {
      for (let column = 0; column < SIDE; ++column) {
        const place = (row * SIDE + column) * 4;
        const pickClass = this.#pixels[place + 3] ?? 0;
        const distance = Math.hypot(row - RADIUS, column - RADIUS);
        if (pickClass !== LINE && !(pickClass === AREA && distance === 0)) continue;
        const item = this.#item(place);
        if (pickClass === AREA) area = item;
        else if (distance <= Math.min(radius, RADIUS) && distance < (nearest.get(item) ?? Infinity))
          nearest.set(item, distance);
      }
    }
    const hits: Hit[] = [...nearest].map(([item, distance]) => ({ item, isLine: true, distance }));
    hits.sort((a, b) => a.distance - b.distance);
    if (area >= 0) hits.push({ item: area, isLine: false, distance: 0 });
    return hits;
  }

  #item(place: number): number {
    const [low = 0, middle = 0, high = 0] = this.#pixels.subarray(place, place + 3);
    return low + middle * 256 + high * 65536 - 1;
  }

  #draw(camera: OrthographicCamera, x: number, y: number, size: readonly [number, number]): void {
    const { renderer, uniforms } = this;
    const visible = this.layers.map(({ object }) => object.visible);
    for (const { object, picked } of this.layers) {
      object.visible &&= picked !== null;
      if (picked) object.material = picked;
    }
    const viewport = uniforms.viewport.value.clone();
    const { pixel } = uniforms;
    const dots = pixel.value;
    uniforms.viewport.value.set(SIDE, SIDE);
    pixel.value = 1;
    const { background } = this.scene;
    const alpha = renderer.getClearAlpha();
    this.scene.background = null;
    renderer.setClearAlpha(0);
    camera.setViewOffset(size[0], size[1], x - RADIUS, y - RADIUS, SIDE, SIDE);
    renderer.setRenderTarget(this.#target);
    renderer.clear();
    renderer.render(this.scene, camera);
    renderer.readRenderTargetPixels(this.#target, 0, 0, SIDE, SIDE, this.#pixels);
    renderer.setRenderTarget(null);
    camera.clearViewOffset();
    renderer.setClearAlpha(alpha);
    this.scene.background = background;
    uniforms.viewport.value.copy(viewport);
    pixel.value = dots;
    this.layers.forEach(({ object, drawn }, i) => {
      object.visible = visible[i] ?? true;
      object.material = drawn;
    });
  }
}

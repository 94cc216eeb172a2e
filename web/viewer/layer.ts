import type { BufferGeometry, Material, Mesh, Points, RawShaderMaterial } from 'three';
import { levelsOf } from './shaders.ts';

/** Something that is drawn, and how it is drawn where ids are asked for; null where it is not. */
export interface Layer {
  readonly object: Mesh | Points;
  readonly drawn: Material;
  readonly picked: Material | null;
  readonly isArea: boolean;
  /** The lowest and the highest that it draws. */
  readonly levels: readonly [number, number];
}

/** Layers are drawn in this order, those that are transparent behind the others. */
export const ORDER = { faces: 0, lines: 1, faint: 2, texts: 3, chosen: 4, marks: 5 };

export function layer(
  object: Mesh<BufferGeometry, RawShaderMaterial> | Points<BufferGeometry, RawShaderMaterial>,
  order: number,
  picked: Material | null,
  isArea = false,
): Layer {
  object.frustumCulled = false;
  object.renderOrder = order;
  return { object, drawn: object.material, picked, isArea, levels: levelsOf(object.material) };
}

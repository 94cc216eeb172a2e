// The materials of all that is drawn. A vertex names its item; colour and level come from a table of all items, so
// that showing, hiding and marking change some bytes of it and no geometry.
import { DataTexture, GLSL3, RawShaderMaterial, Vector2, Vector4 } from 'three';
import type { IUniform, ShaderMaterialParameters } from 'three';

const WIDTH = 1024;

export interface Uniforms {
  readonly states: IUniform<DataTexture>;
  /** What lies beyond it (xyz · point > w, in model units) is cut away. */
  readonly section: IUniform<Vector4>;
  readonly inside: IUniform<Vector4>;
  /** In pixels of the picture. */
  readonly viewport: IUniform<Vector2>;
  readonly pixel: IUniform<number>;
}

export function makeUniforms(items: number): Uniforms {
  const rows = Math.ceil(items / WIDTH);
  const states = new DataTexture(new Uint8Array(rows * WIDTH * 4), WIDTH, rows);
  return {
    states: { value: states },
    section: { value: new Vector4(0, 0, 0, 1) },
    inside: { value: new Vector4(0, 0, 0, 0) },
    viewport: { value: new Vector2(1, 1) },
    pixel: { value: 1 },
  };
}

const VERTEX = `
precision highp float;
precision highp int;
precision highp sampler2D;
uniform mat4 modelViewMatrix;
uniform mat4 projectionMatrix;
uniform sampler2D states;
uniform vec2 levels;
flat out vec4 colour;
flat out uint id;
out vec3 at;

const float CHOSEN = 4.0;
float level;

bool takes(uint item) {
  vec4 state = texelFetch(states, ivec2(int(item % ${WIDTH}u), int(item / ${WIDTH}u)), 0);
  level = floor(state.a * 255.0 + 0.5);
  colour = vec4(state.rgb, level == 1.0 ? 0.28 : 1.0);
  id = item + 1u;
  at = vec3(0.0);
  gl_Position = vec4(0.0, 0.0, 2.0, 1.0);
  return level >= levels.x && level <= levels.y;
}
`;

const FRAGMENT = `
precision highp float;
precision highp int;
uniform vec4 section;
uniform float opacity;
flat in vec4 colour;
flat in uint id;
in vec3 at;
out vec4 result;

bool cut() {
  return dot(section.xyz, at) > section.w;
}
`;

/** What an id pass writes: the item, from 1, and a class. */
const PICKED = `
uniform float pickClass;
void main() {
  if (cut() || !inside_shape()) discard;
  result = vec4(float(id & 255u), float((id >> 8u) & 255u), float((id >> 16u) & 255u), pickClass) / 255.0;
}
`;

export interface Shader {
  /** Declarations and a main that calls takes() first. */
  readonly vertex: string;
  /** Declarations, "bool inside_shape()" and "vec4 shade()". */
  readonly fragment: string;
}

export function drawing(
  uniforms: Uniforms,
  shader: Shader,
  levels: readonly [number, number],
  more: ShaderMaterialParameters & { own?: Record<string, IUniform> } = {},
): RawShaderMaterial {
  const { own, opacity, ...parameters } = more;
  return new RawShaderMaterial({
    glslVersion: GLSL3,
    uniforms: { ...uniforms, levels: { value: new Vector2(...levels) }, opacity: { value: opacity ?? 1 }, ...own },
    vertexShader: VERTEX + shader.vertex,
    fragmentShader: `${FRAGMENT}${shader.fragment}
void main() {
  if (cut() || !inside_shape()) discard;
  result = shade();
  result.a *= opacity;
}`,
    ...parameters,
  });
}

export function levelsOf(material: RawShaderMaterial): [number, number] {
  const [low, high] = (material.uniforms['levels']?.value as Vector2).toArray();
  return [low, high];
}

/** Faces and texts give way to lines where both are near a click. */
export const AREA = 1;
export const LINE = 2;

export function picking(drawn: RawShaderMaterial, shader: Shader, pickClass: number): RawShaderMaterial {
  return new RawShaderMaterial({
    glslVersion: GLSL3,
    uniforms: { ...drawn.uniforms, levels: { value: new Vector2(1, 4) }, pickClass: { value: pickClass } },
    vertexShader: VERTEX + shader.vertex,
    fragmentShader: FRAGMENT + shader.fragment + PICKED,
    side: drawn.side,
    polygonOffset: drawn.polygonOffset,
    polygonOffsetFactor: drawn.polygonOffsetFactor,
    polygonOffsetUnits: drawn.polygonOffsetUnits,
  });
}

// What a page shows: the packed model, unpacked. The program writes it; the same names stand in its scene.
// Coordinates are model units. Numbers that refer to lists are positions from 0, -1 for none.

export type Severity = 'error' | 'warning' | 'note';
export type Change = 'none' | 'changed' | 'added' | 'removed';
export type Kind = 'face' | 'edge' | 'curve' | 'point' | 'annotation';

/** An entity that is drawn, stands in the tree or has findings. All texts are texts, never markup. */
export interface Entity {
  readonly de: number;
  readonly type: number;
  readonly form: number;
  readonly line: number;
  readonly old: boolean;
  readonly typeName: string;
  readonly name: string;
  readonly colourName: string;
  readonly levels: readonly number[];
  /** Label and value, as `igs print` has them. */
  readonly fields: readonly (readonly [string, string])[];
  readonly fieldsLeftOut: number;
}

export interface TreeNode {
  readonly label: string;
  readonly entity: number;
  readonly parent: number;
}

export interface Finding {
  readonly severity: Severity;
  readonly className: string;
  readonly message: string;
  readonly place: string;
  readonly line: number;
  readonly entity: number;
  readonly consequence: boolean;
  readonly items: readonly number[];
  readonly dependents: readonly number[];
}

export interface Difference {
  readonly change: Change;
  readonly oldEntity: number;
  readonly newEntity: number;
  readonly fields: readonly (readonly [string, string, string])[];
  readonly items: readonly number[];
}

export interface Level {
  readonly level: number;
  readonly name: string;
  readonly entities: number;
}

/** A note's text on the plane of `along` and `up`, from a start that is relative to the middle as points are. */
export interface NoteText {
  readonly item: number;
  readonly text: string;
  readonly start: readonly [number, number, number];
  readonly along: readonly [number, number, number];
  readonly up: readonly [number, number, number];
}

/** What is drawn of an entity at one place. */
export interface Item {
  readonly kind: Kind;
  readonly entity: number;
  readonly node: number;
  readonly faces: readonly number[];
  /** 0xRRGGBB, or -1 where the file gives none. */
  readonly colour: number;
  readonly off: boolean;
  readonly change: Change;
  /** Parts of the shared arrays: [first, end). */
  readonly points: readonly [number, number];
  readonly triangles: readonly [number, number];
  /** In polylines. */
  readonly lines: readonly [number, number];
}

export interface Model {
  readonly title: string;
  readonly oldTitle: string;
  readonly units: string;
  /** All faces are of shells, so that one sees from which side one looks at them. */
  readonly solid: boolean;
  readonly chord: number;
  readonly angle: number;
  readonly remarks: readonly string[];
  readonly low: readonly [number, number, number];
  readonly high: readonly [number, number, number];
  readonly levels: readonly Level[];
  readonly entities: readonly Entity[];
  readonly nodes: readonly TreeNode[];
  readonly items: readonly Item[];
  readonly findings: readonly Finding[];
  readonly differences: readonly Difference[];
  /** Errors, warnings and notes of the file; the list may be shorter. */
  readonly counts: readonly [number, number, number];
  readonly texts: readonly NoteText[];
  /** The way in which one looks at first. */
  readonly direction: readonly [number, number, number];

  /** Three numbers a point, relative to the middle of the model's box; of faces, areas and points. */
  readonly points: Float32Array;
  /** Three bytes a point, of length 127; zero where there is none. */
  readonly normals: Int8Array;
  /** Three points a triangle. */
  readonly triangles: Uint32Array;
  /** Three numbers a point, likewise, of the polylines. */
  readonly linePoints: Float32Array;
  /** The first point of each polyline, and behind the last one the number of points. */
  readonly lineStarts: Uint32Array;
}

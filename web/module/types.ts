// The options and results of the module's calls. Options are those of the program's commands, results the JSON that it
// prints, of the shape that docs/schema/report.json has. DE numbers are odd, from 1; lines are counted from 1, as editors
// show them; lengths are in the file's model units; null is what the file does not give, or what is no finite number.

/** error: data are lost, unusable or contradictory. warning: another reader may refuse or misread it. note: bookkeeping. */
export type Severity = 'error' | 'warning' | 'note';

export interface CallOptions {
  /** What the file is called in results; "input.igs" without it. Of a path only the last part is taken. */
  readonly name?: string;
}

/** Which faults are heeded, and how. */
export interface FindingOptions extends CallOptions {
  /** Classes of faults to leave out; * is any text. A repair leaves them as they are. */
  readonly ignore?: string | readonly string[];
  /** The only classes of faults to heed; * is any text. */
  readonly only?: string | readonly string[];
  /** PATTERN=error, PATTERN=warning or PATTERN=note: rates classes otherwise. */
  readonly severity?: string | readonly string[];
  /** KEY=VALUE: changes a tolerance. */
  readonly set?: string | readonly string[];
  /** Leaves out the geometric checks: gaps, free edges, ... */
  readonly noGeometry?: boolean;
}

export interface ReportOptions extends FindingOptions {
  /** At most so many findings are listed, and so many repaired ones; all are counted. All are listed without it. */
  readonly maxErrors?: number;
}

export interface RepairOptions extends ReportOptions {
  /** Lists what differs between what was read and what was written. */
  readonly summary?: boolean;
  /** Writes nothing, but says what would be repaired, and gives the summary. */
  readonly dryRun?: boolean;
  /** Leaves coordinates, knots, weights and parameters as they are. */
  readonly keepGeometry?: boolean;
  /** What the units are where that is in doubt: MM, INCH, ... */
  readonly units?: string;
  /** Writes what was read of a file that is not whole. */
  readonly salvage?: boolean;
  /** Leaves out entities without a class, their pointers, and comments. */
  readonly dropUnsupported?: boolean;
  /** Deletes the entities that have errors or warnings left, and those that cannot do without them. */
  readonly deleteFaulty?: boolean;
  /** Significant digits of reals, 1 to 17; as many as they need without it. */
  readonly digits?: number;
  /** The letter of exponents; as read without it. */
  readonly exponent?: 'E' | 'D';
  /** As read without it. */
  readonly lineEnds?: 'lf' | 'crlf';
}

export interface InfoOptions extends CallOptions {
  /** Measures the geometry, too. */
  readonly geometry?: boolean;
}

/** A page of its own, to turn and ask; binary glTF; or a still picture. */
export type PictureFormat = 'html' | 'glb' | 'svg';

export interface PictureOptions extends FindingOptions {
  readonly format: PictureFormat;
  /** How far triangles and lines may be off the shapes, in model units, above 0; a thousandth of the model's size without it. */
  readonly chord?: number;
  /** How far they may turn from one piece to the next, in degrees, above 0; 20 without it, 5 on free curves. */
  readonly angle?: number;
  /** iso, front, back, left, right, top or bottom: where one looks from; or X,Y,Z: along which way. */
  readonly direction?: string;
}

/** The file was not worked on: it is no IGES file, or its packing is damaged. */
export interface Failure {
  readonly file: string;
  /** Why, for people. */
  readonly error: string;
}

export interface Finding {
  /** Where the library keeps it: with an entity, the structure of the file, or a section. */
  readonly log: 'object' | 'structure' | 'global' | 'start' | 'terminate';
  /** The class of the fault, such as igs110CoincidentPoints. */
  readonly class: string;
  readonly severity: Severity;
  readonly line: number;
  /** The entity's DE number and type; missing where it is no entity's fault. */
  readonly de?: number;
  readonly type?: number;
  /** What the class carries, in the order that its page says. */
  readonly values: readonly (number | string | null)[];
  /** A sentence for people, without place and class. */
  readonly message: string;
  /** It only says that an entity referred to has faults of its own. */
  readonly consequence: boolean;
  readonly repairable: boolean;
}

export interface Contents {
  readonly file: string;
  /** The file was read to its end. */
  readonly read: boolean;
  /** How many there are, without those that were left out. */
  readonly entities: number;
  /** Null entities, which are left out. */
  readonly nulls: number;
  /** Entities of types that the standard does not have. */
  readonly unknowns: number;
  /** Entities that were left out, by "type:form". */
  readonly dropped: Readonly<Record<string, number>>;
  /** Entities without a class, which are kept as texts, by "type:form". */
  readonly kept: Readonly<Record<string, number>>;
  /** Entities by type. */
  readonly types: Readonly<Record<string, number>>;
  /** The name of the units; null where they are in doubt, too. */
  readonly units: string | null;
}

export interface Report extends Contents {
  readonly counts: Readonly<Record<Severity, number>>;
  /** The sum of the counts. */
  readonly error_count: number;
  readonly errors: readonly Finding[];
  /** Entities that could not be kept. */
  readonly lost: readonly Lost[];
  /** What the library had to say while it worked. */
  readonly messages: readonly string[];
}

/** An entity that could not be kept. */
export interface Lost {
  readonly de: number;
  readonly type: number | null;
  readonly line: number;
  readonly why: string;
}

/** A reference is the entity referred to; null is a value not set, or no entity. */
export type FieldValue = number | string | null | { readonly de: number; readonly type: number };

export interface Difference {
  readonly change: 'start' | 'global' | 'dropped' | 'changed' | 'removed' | 'added';
  readonly old_de?: number;
  readonly new_de?: number;
  readonly type?: number;
  readonly field?: string;
  readonly old?: FieldValue;
  readonly new?: FieldValue;
}

/** What differs between two files: what, and how much of it. */
export interface Differences {
  readonly changes: readonly Difference[];
  readonly same: boolean;
  /** Entities. */
  readonly changed: number;
  readonly removed: number;
  readonly added: number;
  /** Global parameters. */
  readonly global: number;
  /** Start lines. */
  readonly start: number;
  /** Kinds of entities that were left out. */
  readonly dropped: number;
  /** Reals that count as the same. */
  readonly close: number;
  /** Entities that were left out. */
  readonly not_compared: number;
}

/** What is counted and listed is what is left; of the input where nothing could be written. */
export interface RepairReport extends Report {
  /** What was repaired, as found in the input. */
  readonly fixed: readonly Finding[];
  /** DE numbers of what deleteFaulty deleted. */
  readonly deleted?: readonly number[];
  /** What the repaired file is called; null where nothing was written. */
  readonly written: string | null;
  /** With summary or dryRun; null where there is no output. */
  readonly summary?: Differences | null;
  /** The repaired file; null where nothing was written. */
  readonly bytes: Uint8Array<ArrayBuffer> | null;
}

export interface Info extends Contents {
  /** The lines of the Start section. */
  readonly start: readonly string[];
  readonly global: GlobalParameters;
  /** The lines of the sections, as the Terminate section counts them. */
  readonly terminate: Readonly<
    Record<'start_lines' | 'global_lines' | 'directory_lines' | 'parameter_lines', number | null>
  >;
  readonly levels: readonly { readonly level: number; readonly name: string | null; readonly entities: number }[];
  readonly entity_counts: readonly EntityCount[];
  /** With geometry. */
  readonly geometry?: Geometry;
}

export interface EntityCount {
  readonly type: number;
  readonly form: number;
  /** Empty for a type that the standard does not have. */
  readonly name: string;
  readonly form_name: string;
  readonly count: number;
}

/** The parameters of the Global section, in its order. */
export interface GlobalParameters {
  readonly parameter_delimiter: string | null;
  readonly record_delimiter: string | null;
  readonly product_id_from_sending_system: string | null;
  readonly file_name: string | null;
  readonly system_id: string | null;
  readonly preprocessor_version: string | null;
  readonly binary_bits_for_int: number | null;
  readonly sp_max_pow10: number | null;
  readonly sp_sig_digs: number | null;
  readonly dp_max_pow10: number | null;
  readonly dp_sig_digs: number | null;
  readonly product_id_for_receiving_system: string | null;
  readonly model_space_scale: number | null;
  readonly units: { readonly type: number | null; readonly name: string | null };
  readonly max_number_of_line_weights: number | null;
  readonly width_of_max_line_weight: number | null;
  readonly file_creation_date: string | null;
  readonly minimum_resolution: number | null;
  readonly max_coord_value: number | null;
  readonly name_of_author: string | null;
  readonly authors_organization: string | null;
  readonly iges_version: number | null;
  readonly drafting_standard: number | null;
  readonly file_modification_date: string | null;
  readonly application_protocol: string | null;
  /** Fields beyond the last parameter. */
  readonly extra_fields: readonly string[];
}

type Point = readonly [x: number, y: number, z: number];

/** What the file measures, in model units; its model space scale is not applied. */
export interface Geometry {
  readonly faces: number;
  /** Those of shells once each, the boundary curves of every loose face, and curves that stand alone. */
  readonly edges: number;
  /** Of a shell: used once; of loose faces: without a partner. */
  readonly free_edges: number;
  readonly area: number | null;
  /** Of the closed shells together, voids taken off; null where there is none. */
  readonly volume: number | null;
  readonly edge_length: number | null;
  /** Of faces and curves: the least and the greatest coordinates; null where there are none. */
  readonly box: readonly [least: Point, greatest: Point] | null;
  /** DE numbers of the faces that could not be triangulated. */
  readonly unmeshed: readonly number[];
  /** DE numbers of what was not placed because it is too much for the file; missing where that is nothing. */
  readonly left_out?: readonly number[];
}

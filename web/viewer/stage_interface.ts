// What the panels ask of the stage.
export type View = 'front' | 'back' | 'left' | 'right' | 'top' | 'bottom' | 'isometric';

export interface StageControls {
  /** Moves the camera so that these items fill the view; all that is shown without them. */
  fit(items?: readonly number[]): void;
  look(view: View): void;
  /** Turn and move the camera step by step, for the keyboard; radians, and parts of the view's height. */
  turn(right: number, up: number): void;
  pan(right: number, up: number): void;
  /** Above 1 is nearer. */
  zoom(factor: number): void;
}

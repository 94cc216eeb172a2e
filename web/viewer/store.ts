// What the user has chosen and what is shown. The panels and the stage know each other through it alone.
import type { Model } from './model.ts';

export type Shading = 'shaded' | 'wireframe' | 'both';
export type Side = 'both' | 'old' | 'new';
export type Axis = 'x' | 'y' | 'z';

export interface Section {
  readonly axis: Axis;
  /** 0 to 1 along the model's box. */
  readonly position: number;
  readonly flipped: boolean;
}

/** In the coordinates of the file, in model units. */
export interface Measure {
  readonly from: readonly [number, number, number];
  readonly to: readonly [number, number, number] | null;
}

export interface State {
  /** Items that are chosen, and those that depend on what was chosen. */
  readonly chosen: readonly number[];
  readonly dependents: readonly number[];
  /** The finding, or difference, that was chosen; -1 for none. */
  readonly finding: number;
  readonly difference: number;
  /** Whose details are shown; -1 for none. */
  readonly entity: number;
  /** An item a byte: 1 where it is shown. */
  readonly shown: Uint8Array;
  readonly shading: Shading;
  readonly side: Side;
  readonly section: Section | null;
  readonly measuring: boolean;
  readonly measure: Measure | null;
  readonly dark: boolean;
}

export type Change = Partial<State>;
export type Listener = (state: State, change: Change) => void;

export class Store {
  #state: State;
  readonly #listeners: Listener[] = [];

  constructor(
    readonly model: Model,
    dark: boolean,
  ) {
    this.#state = {
      chosen: [],
      dependents: [],
      finding: -1,
      difference: -1,
      entity: -1,
      shown: Uint8Array.from(model.items, (item) => (item.off ? 0 : 1)),
      shading: 'both',
      side: 'both',
      section: null,
      measuring: false,
      measure: null,
      dark,
    };
  }

  get state(): State {
    return this.#state;
  }

  /**
   * Changes part of the state and tells everyone who listens, with what has changed. Items that are chosen replace all
   * that was chosen before.
   */
  set(asked: Change): void {
    const entity = this.model.items[asked.chosen?.[0] ?? -1]?.entity ?? -1;
    const change = asked.chosen ? { dependents: [], finding: -1, difference: -1, entity, ...asked } : asked;
    this.#state = { ...this.#state, ...change };
    for (const listener of this.#listeners) listener(this.#state, change);
  }

  listen(listener: Listener): void {
    this.#listeners.push(listener);
  }
}

// A place for the viewer: whatever model it is given last is the one that is shown.
import type { Viewer } from '../viewer/app.ts';
import { make } from '../viewer/dom.ts';
import type { Session } from './session.ts';
import { sizeInWords } from './words.ts';
import type { Source } from './workshop.ts';

/** Larger files take seconds, for which nobody may have asked. */
const mostUnasked = 8e6;
export const isDrawnUnasked = ({ bytes }: Source): boolean => bytes.size <= mostUnasked;
export const warningOf = ({ bytes }: Source): string =>
  `It may take a while to draw a file of ${sizeInWords(bytes.size)}.`;

/** Calls `act` whenever the element, which was not displayed, is. */
export function whenSeen(element: HTMLElement, act: () => void): void {
  let wasSeen = false;
  new ResizeObserver(() => {
    const isSeen = element.clientWidth > 0;
    if (isSeen && !wasSeen) act();
    wasSeen = isSeen;
  }).observe(element);
}

export class ViewerFrame {
  readonly element = make('div', { class: 'viewer-frame', hidden: true });
  readonly #session: Session;
  readonly #withFinding: boolean;
  readonly #onFailure: (reason: string) => void;
  #model: string | null = null;
  #viewer: Viewer | null = null;

  /** Findings that are chosen are shown in it, or not; `onFailure` is told, for people, why a model cannot be shown. */
  constructor(session: Session, withFinding: boolean, onFailure: (reason: string) => void) {
    this.#session = session;
    this.#withFinding = withFinding;
    this.#onFailure = onFailure;
    session.listen((state, before) => {
      if (state.dark !== before.dark) this.#viewer?.setDark(state.dark);
      if (state.finding !== before.finding) this.#showFinding();
    });
    whenSeen(this.element, () => this.#showFinding());
  }

  /** Shows a packed model in place of the last, while the frame can be seen; none with null. */
  show(model: string | null): void {
    if (model === this.#model) return;
    this.#model = model;
    this.#viewer?.stop();
    this.#viewer = null;
    this.element.hidden = model === null;
    if (model !== null) void this.#start(model);
  }

  async #start(packed: string): Promise<void> {
    try {
      const model = await igsViewer.unpack(packed);
      if (this.#model !== packed) return;
      this.#viewer = igsViewer.startViewer(this.element, model, this.#session.state.dark);
      this.#showFinding();
    } catch (error) {
      if (this.#model !== packed) return;
      this.element.hidden = true;
      this.#onFailure(error instanceof Error ? error.message : String(error));
    }
  }

  #showFinding(): void {
    const { finding } = this.#session.state;
    if (finding && this.#withFinding && this.element.clientWidth > 0) this.#viewer?.showFinding(finding);
  }
}

// The picture of the file that is shown. Small files are drawn as soon as their findings are known, others when asked for.
import { make, makeButton } from '../viewer/dom.ts';
import type { Part, Session } from './session.ts';
import { isDrawnUnasked, ViewerFrame, warningOf, whenSeen } from './viewer_frame.ts';

export class PicturePanel {
  readonly element = make('section', { class: 'panel picture-panel' });
  readonly #session: Session;
  readonly #note = make('p', { class: 'empty', role: 'status' });
  readonly #draw = makeButton('Draw', () => void this.#session.draw(this.#session.state.chosen));
  readonly #still = make('img', { class: 'still', hidden: true });
  readonly #frame: ViewerFrame;
  /** Why the picture that is there cannot be shown. */
  #obstacle = '';

  constructor(session: Session) {
    this.#session = session;
    this.#frame = new ViewerFrame(session, true, (reason) => void this.#showStill(reason));
    const offer = make('div', { class: 'offer' }, this.#note, this.#draw);
    this.element.append(make('h2', { class: 'unseen' }, 'Picture'), offer, this.#still, this.#frame.element);
    let before: Part | null = null;
    session.listen(() => {
      const { part } = session;
      if (part === before) return;
      if (part?.picture !== before?.picture) this.#forget();
      before = part;
      this.#show(part);
    });
    whenSeen(this.element, () => this.#show(session.part));
  }

  #show(part: Part | null): void {
    const isSeen = this.element.clientWidth > 0;
    if (part && isWorthDrawing(part)) return void this.#session.draw(part.id);
    if (!part?.picture) this.#frame.show(null);
    else if (isSeen && this.#obstacle === '') this.#frame.show(part.picture.model);
    this.#note.textContent = part ? this.#noteOf(part) : '';
    this.#note.hidden = this.#note.textContent === '';
    this.#draw.hidden = !part?.report || part.picture !== null || part.jobs.includes('picture');
  }

  #noteOf(part: Part): string {
    if (part.picture) return this.#obstacle;
    if (part.jobs.includes('picture')) return 'Drawing …';
    if (part.failures.picture) return `There is no picture. ${part.failures.picture}`;
    if (part.failure !== '') return 'There is nothing to draw.';
    return part.report ? warningOf(part.source) : '';
  }

  async #showStill(reason: string): Promise<void> {
    const { part } = this.#session;
    if (!part?.picture) return;
    this.#obstacle = reason;
    this.#show(part);
    try {
      const svg = await this.#session.workshop.view(part.source, 'svg');
      if (this.#session.part?.picture !== part.picture) return;
      this.#still.src = URL.createObjectURL(new Blob([svg], { type: 'image/svg+xml' }));
      this.#still.alt = `A still picture of ${part.source.name}`;
      this.#still.hidden = false;
    } catch (error) {
      console.warn(error);
    }
  }

  #forget(): void {
    this.#obstacle = '';
    this.#still.hidden = true;
    if (this.#still.src) URL.revokeObjectURL(this.#still.src);
    this.#still.removeAttribute('src');
  }
}

function isWorthDrawing({ report, picture, jobs, failures, source }: Part): boolean {
  if (!report || picture || jobs.includes('picture') || failures.picture) return false;
  return isDrawnUnasked(source);
}

// The one place to choose files in a dialog.
import { make } from '../viewer/dom.ts';
import type { Source } from './workshop.ts';

export class FileChooser {
  readonly element: HTMLElement;
  readonly #input = make('input', { type: 'file', multiple: true, class: 'unseen' });

  constructor(take: (sources: readonly Source[]) => void) {
    this.element = make('label', { class: 'choose' }, this.#input, 'Choose files');
    this.#input.addEventListener('change', () => {
      const sources = Array.from(this.#input.files ?? [], sourceOf);
      // So that the same file can be chosen again.
      this.#input.value = '';
      take(sources);
    });
  }

  focus(): void {
    this.#input.focus();
  }
}

export const sourceOf = (file: File): Source => ({ name: file.name, bytes: file });

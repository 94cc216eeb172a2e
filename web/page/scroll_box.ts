// A list that scrolls for itself: by the keyboard, too.
import { make } from '../viewer/dom.ts';

export function makeScrollBox(label: string, list: HTMLElement): HTMLElement {
  return make('div', { class: 'scroll-box', tabindex: 0, role: 'region', 'aria-label': label }, list);
}

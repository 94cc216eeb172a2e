// Shapes that stand beside words, so that nothing is told by its colour alone.
import type { Change, Severity } from './model.ts';

const shapes: Readonly<Record<Severity | Change, string>> = {
  error: 'M5 1h6l4 4v6l-4 4H5l-4-4V5zM7 4v5h2V4zm0 6v2h2v-2z',
  warning: 'M8 1l7.5 14H.5zM7 6v4h2V6zm0 5.5v2h2v-2z',
  note: 'M8 1a7 7 0 100 14A7 7 0 008 1zM7 7h2v5H7zm0-3h2v2H7z',
  none: 'M3 7h10v2H3z',
  changed: 'M8 1l7 7-7 7-7-7zM8 4L4 8l4 4 4-4z',
  added: 'M7 2h2v5h5v2H9v5H7V9H2V7h5z',
  removed: 'M3.5 2.1L8 6.6l4.5-4.5 1.4 1.4L9.4 8l4.5 4.5-1.4 1.4L8 9.4l-4.5 4.5-1.4-1.4L6.6 8 2.1 3.5z',
};

/** Says nothing to a screen reader: the word stands beside it. */
export function makeMark(shape: Severity | Change): SVGSVGElement {
  const svg = document.createElementNS('http://www.w3.org/2000/svg', 'svg');
  svg.setAttribute('viewBox', '0 0 16 16');
  svg.setAttribute('class', `mark mark-${shape}`);
  svg.setAttribute('aria-hidden', 'true');
  const path = document.createElementNS('http://www.w3.org/2000/svg', 'path');
  path.setAttribute('d', shapes[shape]);
  path.setAttribute('fill-rule', 'evenodd');
  svg.append(path);
  return svg;
}

// What the page shows while there is no file.
import { make, makeButton } from '../viewer/dom.ts';
import type { Session } from './session.ts';
import type { Source } from './workshop.ts';

/** What is wrong with those that are shown, and what they hold. */
const wrongs: Readonly<Record<string, string>> = {
  'box-faulty.igs': 'A solid box: one plane has no normal',
  'bracket-faulty.igs': 'A sheet metal part: its units contradict each other',
  'bracket-damaged.igs': 'The same part, sound but for blank lines and wrong sequence numbers',
  'curves-faulty.igs': 'Curves of all kinds: a member is missing, a weight negative',
  'surfaces-faulty.igs': 'Surfaces: knots out of order, a boundary missing',
  'drawing-faulty.igs': 'A drawing: a dimension lacks its leader',
  'flange-faulty.igs': 'Placed copies of a hole: one is scaled to nothing',
  'box.igs': 'A solid box without any fault',
};

export class StartScreen {
  readonly element = make('section', { class: 'start', 'aria-label': 'Start' });
  /** For the button that adds files. */
  readonly place = make('div', { class: 'drop-zone' });

  constructor(session: Session, examples: readonly Source[]) {
    const what =
      'Drop IGES files to see every fault in them, where it is and what it means; ' +
      'have them repaired, and see what that changes.';
    this.place.append(make('p', {}, 'Drop files or folders here, or'));
    const list = make('ul', { class: 'examples' });
    for (const [name, wrong] of Object.entries(wrongs)) {
      const source = examples.find((example) => example.name === name);
      if (!source) continue;
      const button = makeButton('', () => session.add([source]), { class: 'file' });
      button.append(make('span', { class: 'name' }, name), make('span', { class: 'where' }, wrong));
      list.append(make('li', {}, button));
    }
    this.element.append(make('p', { class: 'what' }, what), this.place, make('h2', {}, 'Examples to try'), list);
  }
}

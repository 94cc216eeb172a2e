// What can be asked of a repair. What matters for the file that is shown stands in front, all else is folded.
import type { RepairOptions, Report } from '../module/types.ts';
import { make, uniqueId } from '../viewer/dom.ts';

type Flag = 'keepGeometry' | 'dropUnsupported' | 'deleteFaulty' | 'salvage';
type Control = HTMLInputElement | HTMLSelectElement;
type Choice = readonly [value: string, label: string];

const unitNames: readonly Choice[] = [
  ['MM', 'Millimetres'],
  ['INCH', 'Inches'],
  ['M', 'Metres'],
  ['CM', 'Centimetres'],
  ['FT', 'Feet'],
  ['MIL', 'Mils'],
  ['UM', 'Micrometres'],
  ['UIN', 'Microinches'],
  ['KM', 'Kilometres'],
  ['MI', 'Miles'],
];

function makeSelect(unset: string, choices: readonly Choice[]): HTMLSelectElement {
  const select = make('select', {}, make('option', { value: '' }, unset));
  for (const [value, label] of choices) select.append(make('option', { value }, label));
  return select;
}

/** A control with its name and a sentence on what it does. */
function makeRow(control: Control, title: string, sentence: string): HTMLElement {
  const id = uniqueId('sentence');
  control.setAttribute('aria-describedby', id);
  const isCheckbox = control instanceof HTMLInputElement && control.type === 'checkbox';
  const label = isCheckbox
    ? make('label', { class: 'check' }, control, title)
    : make('label', { class: 'field' }, make('span', {}, title), control);
  return make('div', { class: 'option' }, label, make('p', { class: 'small', id }, sentence));
}

const flags: Readonly<Record<Flag, readonly [title: string, sentence: string]>> = {
  salvage: ['Salvage', 'The file is not whole. Writes what could be read of it, and lists what is lost.'],
  keepGeometry: [
    'Keep geometry',
    'Coordinates, knots, weights and parameters stay as they are; their faults stay, too.',
  ],
  deleteFaulty: [
    'Delete what stays faulty',
    'Deletes entities that have errors or warnings left, and those that cannot do without them.',
  ],
  dropUnsupported: [
    'Leave out what has no class',
    'Leaves out entities whose type igs only keeps as text, their pointers, and comments.',
  ],
};

export class RepairOptionsForm {
  readonly element = make('div', { class: 'repair-options' });
  readonly #units = makeSelect('In doubt: leave them', unitNames);
  readonly #digits = make('input', { type: 'number', min: 1, max: 17, placeholder: 'as needed' });
  readonly #exponent = makeSelect('As in the file', [
    ['E', 'E'],
    ['D', 'D'],
  ]);
  readonly #lineEnds = makeSelect('As in the file', [
    ['lf', 'LF'],
    ['crlf', 'CR LF'],
  ]);
  readonly #flags: Readonly<Record<Flag, HTMLInputElement>>;
  readonly #unitsRow: HTMLElement;
  readonly #salvageRow: HTMLElement;
  readonly #title = make('summary', {}, 'Options');

  constructor() {
    const makeFlag = (): HTMLInputElement => make('input', { type: 'checkbox' });
    this.#flags = {
      salvage: makeFlag(),
      keepGeometry: makeFlag(),
      deleteFaulty: makeFlag(),
      dropUnsupported: makeFlag(),
    };
    const rowOf = (flag: Flag): HTMLElement => makeRow(this.#flags[flag], ...flags[flag]);
    const unitsSentence =
      'The file does not say beyond doubt what its lengths are measured in. No number is changed by this.';
    this.#unitsRow = makeRow(this.#units, 'Units', unitsSentence);
    this.#salvageRow = rowOf('salvage');
    const folded = make('details', {}, this.#title, rowOf('keepGeometry'), rowOf('deleteFaulty'));
    folded.append(
      rowOf('dropUnsupported'),
      makeRow(this.#digits, 'Digits', 'Of reals, 1 to 17; without a number as many as each needs to stay as it is.'),
      makeRow(this.#exponent, 'Exponent', 'The letter of exponents.'),
      makeRow(this.#lineEnds, 'Line ends', 'What ends the lines.'),
    );
    folded.addEventListener('change', () => this.#count());
    folded.addEventListener('invalid', () => (folded.open = true), { capture: true });
    this.element.append(this.#unitsRow, this.#salvageRow, folded);
  }

  /** What is folded holds for all files, until it is changed. */
  show(report: Report | null, isOther: boolean): void {
    if (isOther) {
      this.#units.value = '';
      this.#flags.salvage.checked = false;
    }
    this.#unitsRow.hidden = report === null || report.units !== null;
    this.#salvageRow.hidden = report === null || report.read;
  }

  /** null where one of them is no choice: the browser then says so beside it. */
  options(): RepairOptions | null {
    if (!this.#digits.reportValidity()) return null;
    const set: [keyof RepairOptions, string | number | boolean][] = [];
    for (const [flag, input] of Object.entries(this.#flags)) if (input.checked) set.push([flag as Flag, true]);
    if (this.#units.value !== '') set.push(['units', this.#units.value]);
    if (this.#digits.value !== '') set.push(['digits', this.#digits.valueAsNumber]);
    if (this.#exponent.value !== '') set.push(['exponent', this.#exponent.value]);
    if (this.#lineEnds.value !== '') set.push(['lineEnds', this.#lineEnds.value]);
    // Each value is one of those that its control offers.
    return Object.fromEntries(set) as RepairOptions;
  }

  /** So that nothing that is folded is forgotten. */
  #count(): void {
    const { salvage, ...folded } = this.#flags;
    const ticked = Object.values(folded).filter(({ checked }) => checked).length;
    const values = [this.#digits, this.#exponent, this.#lineEnds].filter(({ value }) => value !== '').length;
    const set = ticked + values;
    this.#title.textContent = set === 0 ? 'Options' : `Options (${set} set)`;
  }
}

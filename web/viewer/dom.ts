// Makes elements. Texts become text nodes, nothing else: what a file says is never markup.

type Child = Node | string | null;

export interface Attributes {
  readonly [name: string]: string | number | boolean | null;
}

/** An attribute of false or null is left out, one of true is empty. */
export function setAttribute(element: Element, name: string, value: string | number | boolean | null): void {
  if (value === null || value === false) element.removeAttribute(name);
  else element.setAttribute(name, value === true ? '' : String(value));
}

export function make<Name extends keyof HTMLElementTagNameMap>(
  name: Name,
  attributes: Attributes = {},
  ...children: readonly Child[]
): HTMLElementTagNameMap[Name] {
  const element = document.createElement(name);
  for (const [key, value] of Object.entries(attributes)) setAttribute(element, key, value);
  for (const child of children) if (child !== null) element.append(child);
  return element;
}

export function makeButton(label: string, onClick: () => void, attributes: Attributes = {}): HTMLButtonElement {
  const button = make('button', { type: 'button', ...attributes }, label);
  button.addEventListener('click', onClick);
  return button;
}

/** A button that is pressed or not; whoever knows the state calls setPressed(). */
export function setPressed(button: Element, isPressed: boolean): void {
  button.setAttribute('aria-pressed', String(isPressed));
}

export interface Checkbox {
  readonly row: HTMLLabelElement;
  readonly input: HTMLInputElement;
}

export function makeCheckbox(onChange: (isOn: boolean) => void, ...label: readonly Child[]): Checkbox {
  const input = make('input', { type: 'checkbox' });
  input.addEventListener('change', () => onChange(input.checked));
  return { row: make('label', { class: 'check' }, input, ...label), input };
}

export interface Option<Value extends string> {
  readonly value: Value;
  readonly label: string;
}

/** Radio buttons that look like one control; returns what shows another choice. */
export function makeChoice<Value extends string>(
  legend: string,
  options: readonly Option<Value>[],
  onChange: (value: Value) => void,
): { readonly group: HTMLFieldSetElement; show(value: Value): void } {
  const group = make('fieldset', { class: 'choice' }, make('legend', { class: 'unseen' }, legend));
  const name = uniqueId('choice');
  const inputs = options.map(({ value, label }) => {
    const input = make('input', { type: 'radio', name, value });
    input.addEventListener('change', () => onChange(value));
    group.append(make('label', {}, input, make('span', {}, label)));
    return input;
  });
  return { group, show: (value) => inputs.forEach((input) => (input.checked = input.value === value)) };
}

let lastId = 0;

/** There may be several viewers in a document. */
export function uniqueId(stem: string): string {
  lastId += 1;
  return `igs-${stem}-${lastId}`;
}

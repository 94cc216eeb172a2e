// What else can be taken home: reports and pictures, of the file as it came or as it is repaired.
import { make, makeButton, makeChoice } from '../viewer/dom.ts';
import { nameWithEnding, save } from './save.ts';
import { type Part, repairedSource, type Session } from './session.ts';
import type { Picture, Source, Workshop } from './workshop.ts';

type Side = 'came' | 'repaired';

interface Kind {
  readonly label: string;
  readonly title: string;
  readonly type: string;
  /** `drawn`: the picture of this file, where there is one already. */
  make(workshop: Workshop, source: Source, drawn: Picture | null): Promise<Uint8Array<ArrayBuffer>>;
}

const kinds: readonly Kind[] = [
  {
    label: 'JSON',
    title: 'All findings for programs: one object, as igs check prints it',
    type: 'application/json',
    make: (workshop, source) => workshop.report(source, 'json', { name: source.name }),
  },
  {
    label: 'SARIF',
    title: 'All findings for editors and services that read SARIF 2.1.0',
    type: 'application/sarif+json',
    make: (workshop, source) => workshop.report(source, 'sarif', { name: source.name }),
  },
  {
    label: 'HTML',
    title: 'The picture with its findings: a page that any browser opens',
    type: 'text/html',
    make: async (workshop, source, drawn) => (drawn ?? (await workshop.picture(source, {}))).page,
  },
  {
    label: 'GLB',
    title: 'The model in three dimensions for other viewers: binary glTF',
    type: 'model/gltf-binary',
    make: (workshop, source) => workshop.view(source, 'glb'),
  },
  {
    label: 'SVG',
    title: 'A still picture for documents',
    type: 'image/svg+xml',
    make: (workshop, source) => workshop.view(source, 'svg'),
  },
];

export class SaveGroup {
  readonly element: HTMLElement;
  readonly #session: Session;
  readonly #state = make('p', { class: 'small', role: 'status' });
  readonly #sides = makeChoice<Side>(
    'Of which file',
    [
      { value: 'came', label: 'As it came' },
      { value: 'repaired', label: 'As repaired' },
    ],
    (side) => (this.#side = side),
  );
  #side: Side = 'came';

  constructor(session: Session) {
    this.#session = session;
    const buttons = kinds.map((kind) => {
      const button = makeButton(kind.label, () => void this.#save(kind, button), { title: kind.title, disabled: true });
      return button;
    });
    this.element = make('section', { class: 'save-group', role: 'group', 'aria-label': 'Save' });
    this.element.append(make('h2', { 'aria-hidden': 'true' }, 'Save'), this.#sides.group);
    this.element.append(make('div', { class: 'buttons' }, ...buttons), this.#state);
    let before: Part | null = null;
    const show = (): void => {
      const { part } = session;
      for (const button of buttons) button.disabled = !part?.report;
      this.#sides.group.hidden = !part?.repair?.bytes;
      if (part?.id !== before?.id) this.#state.textContent = '';
      // A new repair is what one wants to know of; without one there is the file alone.
      if (part?.repair !== before?.repair) this.#choose(part?.repair?.bytes ? 'repaired' : 'came');
      before = part;
    };
    session.listen(show);
    this.#choose('came');
    show();
  }

  #choose(side: Side): void {
    this.#side = side;
    this.#sides.show(side);
  }

  async #save(kind: Kind, button: HTMLButtonElement): Promise<void> {
    const { part, workshop } = this.#session;
    if (!part || button.ariaBusy === 'true') return;
    const source = (this.#side === 'repaired' ? repairedSource(part) : null) ?? part.source;
    button.ariaBusy = 'true';
    this.#state.textContent = `${kind.label}: at work …`;
    try {
      const bytes = await kind.make(workshop, source, source === part.source ? part.picture : null);
      const saved = nameWithEnding(source.name, kind.label.toLowerCase());
      save(bytes, saved, kind.type);
      this.#state.textContent = `${saved} is saved.`;
    } catch (error) {
      this.#state.textContent = `${kind.label}: ${error instanceof Error ? error.message : String(error)}`;
    }
    button.ariaBusy = 'false';
  }
}

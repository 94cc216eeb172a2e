// Puts the page together.
import { make, makeButton, setPressed } from '../viewer/dom.ts';
import { Tabs } from '../viewer/tabs.ts';
import { keepTheme, startsDark } from '../viewer/theme.ts';
import { makeAnnouncer } from './announcer.ts';
import { ChangesPanel } from './changes_panel.ts';
import { acceptDrops } from './drop.ts';
import { ExplainPanel } from './explain_panel.ts';
import { classAt } from './explanations.ts';
import { FileChooser } from './file_chooser.ts';
import { FilesPanel } from './files_panel.ts';
import { FindingsPanel } from './findings_panel.ts';
import { makePartHeading } from './part_heading.ts';
import { PicturePanel } from './picture_panel.ts';
import { RepairPanel } from './repair_panel.ts';
import { SaveGroup } from './save_group.ts';
import { Session } from './session.ts';
import { StartScreen } from './start_screen.ts';
import type { Source, Workshop } from './workshop.ts';

function makeThemeButton(root: HTMLElement, session: Session): HTMLButtonElement {
  const button = makeButton('Dark', () => {
    session.setDark(!session.state.dark);
    keepTheme(session.state.dark);
  });
  const show = (): void => {
    setPressed(button, session.state.dark);
    root.classList.toggle('dark', session.state.dark);
  };
  session.listen((state, before) => {
    if (state.dark !== before.dark) show();
  });
  show();
  return button;
}

function makeHeader(...controls: readonly (HTMLElement | null)[]): HTMLElement {
  const promise = make('p', {}, 'Nothing leaves this machine.');
  const title = make('div', { class: 'desk-title' }, make('h1', {}, 'Check and repair IGES files'), promise);
  return make('header', { class: 'desk-bar' }, title, ...controls);
}

/** Opens the explanations where the address of the page asks for one, and the findings again behind it. */
function followAddress(tabs: Tabs, explain: ExplainPanel, findings: FindingsPanel): void {
  /** Where one was when the explanations were opened. */
  let origin: Element | null = null;
  const follow = (): void => {
    const name = classAt(location.hash);
    if (name !== null) {
      if (!explain.element.contains(document.activeElement)) origin = document.activeElement;
      tabs.open(explain.element);
      void explain.explain(name);
    } else if (origin) {
      tabs.open(findings.element);
      if (origin instanceof HTMLElement) origin.focus();
      origin = null;
    }
  };
  addEventListener('hashchange', follow);
  addEventListener('click', ({ target }) => {
    const link = target instanceof Element ? target.closest('a') : null;
    // The address does not change then.
    if (link && link.hash === location.hash) follow();
  });
  follow();
}

/** Makes `root` the page. What stands in it already goes into the bar. `examples` are files to try. */
export function startPage(root: HTMLElement, workshop: Workshop, examples: readonly Source[]): void {
  const session = new Session(workshop, startsDark());
  const chooser = new FileChooser((sources) => session.add(sources));
  const files = new FilesPanel(session);
  const start = new StartScreen(session, examples);
  const findings = new FindingsPanel(session);
  const explain = new ExplainPanel(workshop);
  const repair = new RepairPanel(session);
  const tabs = new Tabs('What is known of the file');
  const picture = new PicturePanel(session);
  tabs.add('Findings', findings.element);
  tabs.add('Picture', picture.element);
  tabs.add('Changes', new ChangesPanel(session).element);

  const side = make('div', { class: 'desk-side' }, files.element, repair.element);
  const part = make('section', { class: 'desk-part', 'aria-label': 'The file' }, makePartHeading(session));
  part.append(tabs.bar, tabs.panels);
  const main = make('main', {}, start.element, side, part);
  const notice = make('p', { class: 'notice', role: 'status' });
  const status = root.querySelector<HTMLElement>('[role=status]');
  root.classList.add('viewer', 'desk');
  root.replaceChildren(makeHeader(status, makeThemeButton(root, session)), notice, main, makeAnnouncer(session));

  const save = new SaveGroup(session).element;
  const narrow = matchMedia('(max-width: 899px)');
  const placeSave = (): void => (narrow.matches ? part : side).append(save);
  narrow.addEventListener('change', placeSave);
  placeSave();

  /** Without files the explanations stand on the start screen. */
  const arrange = (): void => {
    const isEmpty = session.state.parts.length === 0;
    if (isEmpty === main.classList.contains('vacant')) return;
    main.classList.toggle('vacant', isEmpty);
    (isEmpty ? start.place : files.place).append(chooser.element);
    if (isEmpty) tabs.remove(explain.element);
    if (isEmpty) start.element.append(explain.element);
    else tabs.add('Explain', explain.element);
  };
  session.listen((state, before) => {
    const isDrawn = session.part?.picture || session.part?.jobs.includes('picture');
    if (state.finding !== before.finding && state.finding && isDrawn) {
      tabs.open(picture.element);
      tabs.focus();
    }
    if (state.parts.length === before.parts.length) return;
    arrange();
    if (state.parts.length > before.parts.length) tabs.open(findings.element);
    if (state.parts.length === 0) chooser.focus();
    else files.focus();
  });
  arrange();
  acceptDrops(root, (sources, remark) => {
    notice.textContent = remark;
    session.add(sources);
  });
  followAddress(tabs, explain, findings);
}

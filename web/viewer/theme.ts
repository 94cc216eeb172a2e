// Light or dark: as the system has it, until the reader says otherwise.
import { makeButton, setPressed } from './dom.ts';
import type { Store } from './store.ts';

const key = 'igs-theme';

/** A page that was opened from disk may have no storage. */
function stored(): string | null {
  try {
    return localStorage.getItem(key);
  } catch {
    return null;
  }
}

export function startsDark(): boolean {
  const theme = stored();
  return theme === null ? matchMedia('(prefers-color-scheme: dark)').matches : theme === 'dark';
}

/** Remembers what the reader has said. */
export function keepTheme(dark: boolean): void {
  try {
    localStorage.setItem(key, dark ? 'dark' : 'light');
  } catch {
    // It holds for this time.
  }
}

/** Keeps the theme of `viewer` as the store has it. */
export function followTheme(viewer: HTMLElement, store: Store): void {
  const show = (): void => void viewer.classList.toggle('dark', store.state.dark);
  store.listen((_, change) => {
    if (change.dark !== undefined) show();
  });
  show();
}

export function makeThemeSwitch(store: Store): HTMLButtonElement {
  const button = makeButton('Dark', () => {
    store.set({ dark: !store.state.dark });
    setPressed(button, store.state.dark);
    keepTheme(store.state.dark);
  });
  setPressed(button, store.state.dark);
  return button;
}

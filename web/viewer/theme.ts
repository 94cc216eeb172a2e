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

/** Keeps the theme of `viewer` as the store has it. */
export function makeThemeSwitch(viewer: HTMLElement, store: Store): HTMLButtonElement {
  const button = makeButton('Dark', () => {
    const dark = !store.state.dark;
    store.set({ dark });
    try {
      localStorage.setItem(key, dark ? 'dark' : 'light');
    } catch {
      // It holds for this time.
    }
  });
  const show = (): void => {
    setPressed(button, store.state.dark);
    viewer.classList.toggle('dark', store.state.dark);
  };
  store.listen((_, change) => {
    if (change.dark !== undefined) show();
  });
  show();
  return button;
}

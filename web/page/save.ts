// Gives files to whoever reads the page.
import { make } from '../viewer/dom.ts';

interface Name {
  readonly stem: string;
  /** Of an IGES file, as it came; '' where it has another one. */
  readonly ending: string;
}

/** The last part of a path, without what is no letter, and without .gz. */
function partsOf(name: string): Name {
  const last = name.split(/[/\\]/).pop() ?? '';
  const plain = last.replace(/\p{C}/gu, '_').replace(/\.gz$/i, '');
  const [, stem = plain, ending = ''] = /^(.*)(\.ige?s)$/is.exec(plain) ?? [];
  return { stem: stem.slice(-200) || 'file', ending };
}

/** "part.IGS" becomes "part-repaired.IGS". */
export function repairedName(name: string): string {
  const { stem, ending } = partsOf(name);
  return `${stem}-repaired${ending || '.igs'}`;
}

/** "part.igs" becomes "part.json". */
export function nameWithEnding(name: string, ending: string): string {
  return `${partsOf(name).stem}.${ending}`;
}

const untilSaved = 60_000;

export function save(bytes: Uint8Array<ArrayBuffer>, name: string, type: string): void {
  const address = URL.createObjectURL(new Blob([bytes], { type }));
  make('a', { href: address, download: name }).click();
  setTimeout(() => URL.revokeObjectURL(address), untilSaved);
}

// What `igs explain` prints, taken apart.
import { severities } from '../viewer/words.ts';
import type { Severity } from '../module/types.ts';

export interface Explained {
  readonly name: string;
  /** In words; `worst` is the highest of those that the class can have. */
  readonly severity: string;
  readonly worst: Severity;
  readonly sentence: string;
  readonly isRepaired: boolean;
}

/** The list of all classes, a line each. */
export function readClasses(text: string): Explained[] {
  return text.split('\n').flatMap((line) => {
    const parts = /^(\S+) {2}([^:]+): (.*) \[(not )?repaired\]$/.exec(line);
    if (!parts) return [];
    const [, name = '', severity = '', sentence = '', not] = parts;
    const worst = severities.find((each) => severity.includes(each)) ?? 'note';
    return [{ name, severity, worst, sentence, isRepaired: not === undefined }];
  });
}

/** The terms and texts about one class: "Meaning", "Severity", "Repair". */
export function readTerms(text: string): (readonly [string, string])[] {
  return text.split('\n').flatMap((line) => {
    const parts = /^ {2}(\w[\w ]*): (.*)$/.exec(line);
    return parts ? [[parts[1] ?? '', parts[2] ?? ''] as const] : [];
  });
}

const families: Readonly<Record<string, string>> = {
  File: 'The file as a whole',
  StartSection: 'Start section',
  GlobalSection: 'Global section',
  TerminateSection: 'Terminate section',
  DE: 'Directory entry',
  Shape: 'Geometry',
};

/** What the class is about, as its name tells: "Entity type 126". */
export function familyOf(name: string): string {
  const type = /^igs(\d+)/.exec(name)?.[1];
  if (type) return `Entity type ${type}`;
  const family = Object.keys(families).find((each) => name.startsWith(`igs${each}`));
  return family ? (families[family] ?? family) : 'Copious data and groups';
}

const mark = '#explain=';

/** Where the page explains a class. */
export const addressOf = (name: string): string => mark + encodeURIComponent(name);

/** The class that an address asks for; null where it asks for none. */
export function classAt(hash: string): string | null {
  if (!hash.startsWith(mark)) return null;
  const name = hash.slice(mark.length);
  return /^\w+$/.test(name) ? name : '';
}

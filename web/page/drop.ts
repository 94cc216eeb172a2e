// Files and folders that are dropped anywhere on the page.
import { make } from '../viewer/dom.ts';
import { sourceOf } from './file_chooser.ts';
import type { Source } from './workshop.ts';

/** More is not looked for in folders. */
const mostFiles = 1000;
const mostEntries = 20_000;

function fileOf(entry: FileSystemFileEntry): Promise<File> {
  return new Promise((resolve, reject) => entry.file(resolve, reject));
}

/** Gives the entries of a folder some at a time, none at its end. */
function someOf(reader: FileSystemDirectoryReader): Promise<FileSystemEntry[]> {
  return new Promise((resolve, reject) => reader.readEntries(resolve, reject));
}

/** `remark`: what there is to say about them, '' mostly. */
export interface Dropped {
  readonly files: readonly File[];
  readonly remark: string;
}

/** What was dropped by itself, and the IGES files in the folders that were. */
export async function filesOf(dropped: readonly FileSystemEntry[]): Promise<Dropped> {
  const files: File[] = [];
  const waiting = [...dropped];
  const most = dropped.length + mostFiles;
  let isWhole = true;
  for (let next = 0; next < waiting.length; ++next) {
    const entry = waiting[next];
    const isWanted = next < dropped.length || /\.ige?s$/i.test(entry?.name ?? '');
    if (entry?.isFile && isWanted && files.length < most) files.push(await fileOf(entry as FileSystemFileEntry));
    else if (entry?.isFile && isWanted) isWhole = false;
    if (!entry?.isDirectory) continue;
    const reader = (entry as FileSystemDirectoryEntry).createReader();
    for (let some = await someOf(reader); some.length > 0 && isWhole; some = await someOf(reader)) {
      for (const each of some) waiting.push(each);
      isWhole = waiting.length < dropped.length + mostEntries;
    }
  }
  if (!isWhole) return { files, remark: 'The folders hold more files than are looked at; some were left out.' };
  return { files, remark: files.length === 0 ? 'The folders hold no IGES files.' : '' };
}

const hasFiles = (event: DragEvent): boolean => event.dataTransfer?.types.includes('Files') ?? false;

/** Takes files wherever they are dropped in the window; shows in `root` that it would. */
export function acceptDrops(root: HTMLElement, take: (sources: readonly Source[], remark: string) => void): void {
  const sign = make(
    'div',
    { class: 'drop-sign', 'aria-hidden': 'true', hidden: true },
    make('p', {}, 'Drop files to check them'),
  );
  root.append(sign);
  const show = (isOver: boolean): void => {
    sign.hidden = !isOver;
  };
  addEventListener('dragover', (event) => {
    if (!hasFiles(event)) return;
    event.preventDefault();
    if (event.dataTransfer) event.dataTransfer.dropEffect = 'copy';
    show(true);
  });
  addEventListener('dragleave', (event) => {
    if (event.relatedTarget === null) show(false);
  });
  addEventListener('drop', (event) => {
    show(false);
    if (!event.dataTransfer || !hasFiles(event)) return;
    event.preventDefault();
    const all = { files: [...event.dataTransfer.files], remark: '' };
    // Entries are there during the event alone.
    const entries = [...event.dataTransfer.items].flatMap((item) => item.webkitGetAsEntry() ?? []);
    const found = entries.length > 0 ? filesOf(entries) : Promise.resolve(all);
    void found.catch(() => all).then(({ files, remark }) => take(files.map(sourceOf), remark));
  });
}

// Starts the viewer in the page that the program has written; where that fails, the still picture stays. In a page that
// holds no model whoever wants the viewer finds it by name.
import { startViewer } from './app.ts';
import { unpack } from './unpack.ts';

function element(id: string): HTMLElement {
  const found = document.getElementById(id);
  if (!found) throw new Error(`The page lacks its element ${id}.`);
  return found;
}

async function start(): Promise<void> {
  element('still-caption').textContent = 'Loading the model …';
  const data = element('model');
  const model = await unpack((data.textContent ?? '').trim());
  data.remove();
  const root = element('viewer');
  const still = element('still');
  still.remove();
  try {
    startViewer(root, model);
  } catch (error) {
    root.replaceChildren(still);
    throw error;
  }
}

declare global {
  var igsViewer: { readonly startViewer: typeof startViewer; readonly unpack: typeof unpack };
}
globalThis.igsViewer = { startViewer, unpack };

function complain(error: unknown): void {
  console.warn(error);
  const reason = error instanceof Error ? error.message : String(error);
  element('still-caption').textContent = `This is a still picture. ${reason}`;
}

if (document.getElementById('model')) start().catch(complain);

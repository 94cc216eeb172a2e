// Starts the viewer in the page that the program has written; where that fails, the still picture stays.
import { startViewer } from './app.ts';
import { unpack } from './unpack.ts';

function element(id: string): HTMLElement {
  const found = document.getElementById(id);
  if (!found) throw new Error(`The page lacks its element ${id}.`);
  return found;
}

function hasWebGl2(): boolean {
  return document.createElement('canvas').getContext('webgl2') !== null;
}

async function start(): Promise<void> {
  if (!hasWebGl2()) throw new Error('This browser draws no models, as it lacks WebGL 2.');
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

start().catch((error: unknown) => {
  console.warn(error);
  const reason = error instanceof Error ? error.message : String(error);
  element('still-caption').textContent = `This is a still picture. ${reason}`;
});

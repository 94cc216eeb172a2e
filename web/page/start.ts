// Starts the page: fetches all that it will need, gives up the right to ask for more, and shows it.
import { make } from '../viewer/dom.ts';
import { startPage } from './app.ts';
import type { Start } from './job.ts';
import { addressOfScript, serviceWorkerAddress } from './trusted.ts';
import { type Limits, WorkshopClient } from './workshop_client.ts';
import type { Source } from './workshop.ts';

function element(id: string): HTMLElement {
  const found = document.getElementById(id);
  if (!found) throw new Error(`The page lacks its element ${id}.`);
  return found;
}

async function fetched(address: string): Promise<Response> {
  const response = await fetch(address);
  if (!response.ok) throw new Error(`The server does not give ${address}.`);
  return response;
}

const textAt = async (address: string): Promise<string> => (await fetched(address)).text();

/** A server may not know what .wasm is: then nothing is compiled while it arrives. */
async function compiled(address: string): Promise<WebAssembly.Module> {
  const response = await fetched(address);
  const isKnown = response.headers.get('Content-Type') === 'application/wasm';
  return isKnown ? WebAssembly.compileStreaming(response) : WebAssembly.compile(await response.arrayBuffer());
}

async function exampleAt(name: string): Promise<Source> {
  return { name, bytes: await (await fetched(`examples/${name}`)).blob() };
}

/** From here on nothing is asked of any server, by the page or by a worker. */
function closeNetwork(): void {
  document.head.append(make('meta', { 'http-equiv': 'Content-Security-Policy', content: "connect-src 'none'" }));
}

/** Whether the page will open without a server. */
async function keep(): Promise<boolean> {
  if (!('serviceWorker' in navigator)) return false;
  try {
    await navigator.serviceWorker.register(serviceWorkerAddress);
    await navigator.serviceWorker.ready;
    return true;
  } catch (error) {
    console.warn(error);
    return false;
  }
}

async function fetchAndShow(limits?: Limits): Promise<void> {
  const [code, workerText, script, style, examples] = await Promise.all([
    compiled('igs.wasm'),
    textAt('worker.js'),
    textAt('viewer.js'),
    textAt('viewer.css'),
    Promise.all(exampleNames.map(exampleAt)),
  ]);
  closeNetwork();
  const frame = pageFrame.map((piece) => piece.map((part) => part.join(script)).join(style)).join('\0');
  const message: Start = { code, template: new TextEncoder().encode(frame) };
  const address = addressOfScript(workerText);
  const workshop = new WorkshopClient(() => {
    const worker = new Worker(address);
    worker.postMessage(message);
    return worker;
  }, limits);
  startPage(element('page'), workshop, examples);
  // What fails here fails again where it matters.
  workshop.warmUp(examples).catch(() => undefined);
  const readiness = element('readiness');
  readiness.textContent = (await keep()) ? 'Ready, also without a network.' : 'Ready.';
}

/** `limits` of the worker are the usual ones without it. */
export function start(limits?: Limits): void {
  fetchAndShow(limits).catch((error: unknown) => {
    console.warn(error);
    const reason = error instanceof Error ? error.message : String(error);
    element('readiness').textContent = `The page could not start. ${reason}`;
  });
}

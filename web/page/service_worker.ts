// Keeps the page's files, all of one version, so that it opens without a network.

interface Extendable extends Event {
  waitUntil(work: Promise<unknown>): void;
}
interface Fetching extends Extendable {
  readonly request: Request;
  respondWith(response: Promise<Response>): void;
}

const stem = 'igs-page-';
const store = stem + release.version;
const root = new URL('./', location.href).href;

/** The address of a file of the page as the cache has it; null of anything else. */
function kept({ method, url }: Request): string | null {
  const address = url.replace(/[?#].*/, '');
  if (method !== 'GET' || !address.startsWith(root)) return null;
  const path = address.slice(root.length) || 'index.html';
  return release.files.some(([name]) => name === path) ? root + path : null;
}

async function keepAll(): Promise<void> {
  const cache = await caches.open(store);
  // A file of another version is no good, and fails.
  await cache.addAll(release.files.map(([name, integrity]) => new Request(name, { integrity, cache: 'no-cache' })));
}

async function dropOthers(): Promise<void> {
  const names = (await caches.keys()).filter((name) => name.startsWith(stem) && name !== store);
  await Promise.all(names.map((name) => caches.delete(name)));
}

async function answer(address: string): Promise<Response> {
  return (await (await caches.open(store)).match(address)) ?? fetch(address);
}

addEventListener('install', (event) => (event as Extendable).waitUntil(keepAll()));
addEventListener('activate', (event) => (event as Extendable).waitUntil(dropOthers()));
addEventListener('fetch', (event) => {
  const { request, respondWith } = event as Fetching;
  const address = kept(request);
  if (address !== null) respondWith.call(event, answer(address));
});

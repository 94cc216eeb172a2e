// What a page may not do: ask for anything once it is ready, need its server again, or fail with a file.
import assert from 'node:assert/strict';
import { mkdtempSync, readdirSync, readFileSync, rmSync, statSync } from 'node:fs';
import { request } from 'node:http';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { Readable } from 'node:stream';
import { buffer } from 'node:stream/consumers';
import { after, before, test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { brotliCompressSync, createGzip } from 'node:zlib';
import { buildPage } from '../build_page.mjs';
import { pageFolder, ready, served } from './served.mjs';

const example = (name) => fileURLToPath(new URL(`../../examples/${name}.igs`, import.meta.url));
const fileOf = (name, buffer) => ({ name, mimeType: 'model/iges', buffer });

const choose = (page, ...files) => page.locator('input[type=file]').setInputFiles(files);
const findings = (page) => page.locator('.findings li');

/** A faulty file is checked. */
async function checks(page) {
  await choose(page, example('box-faulty'));
  await findings(page).first().waitFor();
}

test('a page that is ready asks for nothing more, whatever is done', async (t) => {
  const { open, requests } = await served(t);
  const page = await open();
  await ready(page, /without a network/);
  const before = requests.length;
  await checks(page);
  await page.getByRole('button', { name: 'Repair' }).click();
  const downloaded = page.waitForEvent('download');
  await page.getByRole('button', { name: 'Download' }).click();
  assert.equal((await downloaded).suggestedFilename(), 'box-faulty-repaired.igs');
  await page.getByRole('tab', { name: 'Picture' }).click();
  await page.locator('[data-faces][data-ready]').waitFor();
  assert.deepEqual(requests.slice(before), []);
});

test('a page and its worker may ask nobody', async (t) => {
  const { open, requests, address } = await served(t, {
    allowed: /connect-src|Content Security Policy|TrustedScriptURL|trusted-types/,
  });
  const page = await open();
  await ready(page, /without a network/);
  const before = requests.length;
  const ask = (url) => fetch(url).then(String, (error) => error.name);
  const [worker] = page.workers();
  for (const url of [address, `${address}igs.wasm`, 'https://example.com/']) {
    assert.equal(await page.evaluate(ask, url), 'TypeError');
    assert.equal(await worker.evaluate(ask, url), 'TypeError');
  }
  const makeWorker = (url) => {
    try {
      return String(new Worker(url));
    } catch (error) {
      return error.name;
    }
  };
  assert.equal(await page.evaluate(makeWorker, 'worker.js'), 'TypeError', 'an address of no policy');
  assert.deepEqual(requests.slice(before), []);
});

test('a page opens and works without its server', async (t) => {
  const { open, close } = await served(t);
  const page = await open();
  await ready(page, /without a network/);
  await close();
  await page.reload();
  await ready(page, /without a network/);
  await checks(page);
  const another = await open({ path: 'index.html?again' });
  await checks(another);
});

test('a page is small', () => {
  const sizes = new Map(
    readdirSync(pageFolder, { recursive: true })
      .filter((name) => statSync(join(pageFolder, name)).isFile())
      .map((name) => [name, brotliCompressSync(readFileSync(join(pageFolder, name))).length]),
  );
  assert.ok(sizes.get('igs.wasm') <= 600_000, `igs.wasm: ${sizes.get('igs.wasm')}`);
  const all = [...sizes.values()].reduce((sum, size) => sum + size, 0);
  assert.ok(all <= 1_000_000, `all files: ${all}`);
});

const packedZeros = (megabytes) => {
  const block = Buffer.alloc(2 ** 20);
  return buffer(Readable.from(Array.from({ length: megabytes }, () => block)).pipe(createGzip()));
};

const folder = mkdtempSync(join(tmpdir(), 'igs-hasty-page-'));
before(() => buildPage(folder, { main: 'tests/hasty_main.mjs', worker: 'tests/failing_worker.mjs' }));
after(() => rmSync(folder, { recursive: true }));

test('a file that is too much is said to be, and the next one is checked', async (t) => {
  const { open } = await served(t, { folder, allowed: /This worker fails/ });
  const page = await open();
  const small = readFileSync(example('box-faulty'));
  const cases = [
    [fileOf('endless.igs', small), /longer than [34] seconds/],
    [fileOf('crash.igs', small), /too much for this browser/],
    [fileOf('large.igs', Buffer.alloc(2 ** 21 + 1)), /larger than 2 MiB/],
    [fileOf('zeros.igs.gz', await packedZeros(513)), /more than 512 MiB/],
  ];
  for (const [file, why] of cases) {
    await choose(page, file);
    await page.locator('.failure', { hasText: why }).waitFor({ timeout: 60_000 });
    await checks(page);
  }
});

test('a job can be stopped, and the file that waits is checked', async (t) => {
  const { open } = await served(t, { folder });
  const page = await open();
  const file = readFileSync(example('box-faulty'));
  await choose(page, fileOf('endless.igs', file), fileOf('next.igs', file));
  await page.getByRole('button', { name: 'Stop' }).click();
  await page.locator('.failure', { hasText: 'Stopped' }).waitFor();
  await page.getByRole('button', { name: /^next.igs/ }).click();
  await findings(page).first().waitFor();
});

test('the server gives files of its folder alone', async (t) => {
  const { address } = await served(t);
  const { port } = new URL(address);
  // No client that tidies addresses up.
  const ask = (path) =>
    new Promise((resolve, reject) => {
      request({ host: '127.0.0.1', port, path }, (response) => resolve(response.resume().statusCode))
        .on('error', reject)
        .end();
    });
  assert.equal(await ask('/examples/box.igs?again'), 200);
  for (const path of [
    '/../wasm/bin/igs.js',
    '/%2e%2e/wasm/bin/igs.js',
    '/..%2fwasm/bin/igs.js',
    '/examples',
    '/%00',
    '/%',
  ])
    assert.equal(await ask(path), 404, path);
});

// The page that web/build_page.mjs has built, from a server that counts what it is asked for, in chromium (CHROMIUM, or
// Debian's).
import assert from 'node:assert/strict';
import { after } from 'node:test';
import { fileURLToPath } from 'node:url';
import { chromium } from 'playwright-core';
import { serve } from '../serve.mjs';

export const pageFolder = fileURLToPath(new URL('../../build/page/', import.meta.url));

let launched = null;
after(async () => (await launched)?.close());

function browser() {
  const executablePath = process.env.CHROMIUM ?? '/usr/bin/chromium';
  launched ??= chromium.launch({ executablePath, args: ['--no-sandbox', '--enable-unsafe-swiftshader'] });
  return launched;
}

/** What a page complains of, and what violates its policy. */
async function watch(page, complaints) {
  page.on('console', (message) => {
    if (['error', 'warning'].includes(message.type()) && !/GL Driver Message/.test(message.text()))
      complaints.push(`${message.type()}: ${message.text()}`);
  });
  page.on('pageerror', (error) => complaints.push(`error: ${error.message}`));
  await page.addInitScript(() => {
    addEventListener('securitypolicyviolation', (event) => console.error('violates', event.violatedDirective));
  });
}

/** Says that it is ready; `how` may say whether also without a network. */
export const ready = (page, how = /^Ready/) => page.locator('#readiness', { hasText: how }).waitFor();

/**
 * A server of the page, or of another folder: its address, the addresses that it was asked for so far, and `open`, which
 * opens the page when it is ready. All of it ends with the test, which fails where a page complained, but for what
 * `allowed` takes.
 */
export async function served(t, { folder = pageFolder, allowed = /^$/, ...options } = {}) {
  const requests = [];
  const complaints = [];
  const server = await serve(folder, { onRequest: ({ url }) => requests.push(url) });
  const context = await (
    await browser()
  ).newContext({ reducedMotion: 'reduce', viewport: { width: 1200, height: 700 }, ...options });
  const close = () => {
    server.closeAllConnections();
    return new Promise((resolve) => server.close(resolve));
  };
  t.after(async () => {
    await context.close();
    if (server.listening) await close();
    const worse = complaints.filter((complaint) => !allowed.test(complaint));
    assert.deepEqual(worse, []);
  });
  const address = `http://127.0.0.1:${server.address().port}/`;
  return {
    address,
    requests,
    complaints,
    close,
    async open({ path = '', init } = {}) {
      const page = await context.newPage();
      await watch(page, complaints);
      if (init) await page.addInitScript(init);
      await page.goto(address + path);
      await ready(page);
      return page;
    },
  };
}

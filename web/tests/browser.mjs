// Pages that the program (IGS_PROGRAM) makes, opened from disk in chromium (CHROMIUM, or Debian's).
import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { mkdtempSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { basename, join } from 'node:path';
import { after } from 'node:test';
import { fileURLToPath, pathToFileURL } from 'node:url';
import { chromium } from 'playwright-core';
import { PNG } from 'pngjs';

const program = process.env.IGS_PROGRAM;
assert.ok(program, 'IGS_PROGRAM names the program to test');
export const folder = mkdtempSync(join(tmpdir(), 'igs-page-'));
export const example = (name) => fileURLToPath(new URL(`../../examples/${name}.igs`, import.meta.url));

const launched = new Map();
after(async () => {
  for (const browser of launched.values()) await (await browser).close();
  rmSync(folder, { recursive: true });
});

function browser(flags) {
  const key = flags.join(' ');
  if (!launched.has(key)) {
    const executablePath = process.env.CHROMIUM ?? '/usr/bin/chromium';
    const args = ['--no-sandbox', '--enable-unsafe-swiftshader', ...flags];
    launched.set(key, chromium.launch({ executablePath, args }));
  }
  return launched.get(key);
}

/** What the program prints. */
export function igs(...words) {
  const { status, stdout, stderr } = spawnSync(program, words, { encoding: 'utf8' });
  assert.ok(status === 0 || status === 1, `igs ${words.join(' ')}: ${stderr}`);
  return stdout;
}

/** The path of the page that is made of a file. */
export function pageOf(file, ...options) {
  const made = join(folder, `${basename(file)}.html`);
  igs('view', '-o', made, ...options, file);
  return made;
}

/** Whatever a page says, asks for or tries that it should not. */
function watch(page, address, complaints) {
  page.on('console', (message) => {
    const isWord = ['error', 'warning'].includes(message.type()) && !/GL Driver Message/.test(message.text());
    if (isWord) complaints.push(`${message.type()}: ${message.text()}`);
  });
  page.on('pageerror', (error) => complaints.push(`error: ${error.message}`));
  page.on('request', (request) => {
    if (request.url() !== address && !/^(data|blob):/.test(request.url())) complaints.push(`asks for ${request.url()}`);
  });
  page.on('dialog', (dialog) => {
    complaints.push(`dialog: ${dialog.message()}`);
    void dialog.dismiss();
  });
  return page.addInitScript(() => {
    addEventListener('securitypolicyviolation', (event) => console.error('violates', event.violatedDirective));
  });
}

/**
 * Opens a page without a network, and closes it after the test, which fails if there was something to complain about.
 * `still` is for pages that show no more than the still picture.
 */
export async function opened(t, made, { still = false, flags = [], allowed = /^$/, init, ...options } = {}) {
  const context = await (
    await browser(flags)
  ).newContext({
    offline: true,
    reducedMotion: 'reduce',
    viewport: { width: 1200, height: 700 },
    ...options,
  });
  const page = await context.newPage();
  const address = pathToFileURL(made).href;
  const complaints = [];
  await watch(page, address, complaints);
  if (init) await page.addInitScript(init);
  await page.goto(address);
  t.after(async () => {
    await context.close();
    assert.deepEqual(
      complaints.filter((complaint) => !allowed.test(complaint)),
      [],
    );
  });
  if (!still) await until(() => stageOf(page).and(page.locator('[data-ready]')).count(), 'a picture');
  return page;
}

export const stageOf = (page) => page.locator('[data-faces]');
export const facesOf = async (page) => Number(await stageOf(page).getAttribute('data-faces'));
export const cameraOf = (page) => stageOf(page).getAttribute('data-camera');

/** Waits until it holds. */
export async function until(holds, what) {
  const end = Date.now() + 30_000;
  while (!(await holds())) {
    assert.ok(Date.now() < end, `in vain: ${what}`);
    await new Promise((resolve) => setTimeout(resolve, 20));
  }
}

/** Does something and waits until the stage has drawn what came of it. */
export async function drawn(page, act) {
  const before = await stageOf(page).getAttribute('data-pictures');
  await act();
  await page.waitForFunction((number) => document.querySelector('[data-faces]').dataset.pictures !== number, before);
}

/** What the stage, or another element, shows, in pixels of [red, green, blue]. */
export async function picture(page, element = stageOf(page)) {
  const { width, height, data } = PNG.sync.read(await element.screenshot());
  const at = (x, y) => data.subarray(4 * (y * width + x), 4 * (y * width + x) + 3);
  const background = at(1, height - 2);
  const isNear = (a, b, most) => a.every((part, i) => Math.abs(part - b[i]) <= most);
  const count = (accepts) => {
    let number = 0;
    for (let i = 0; i < data.length; i += 4) if (accepts(data.subarray(i, i + 3))) ++number;
    return number;
  };
  return {
    width,
    height,
    data,
    background,
    /** The part of the pixels that is not background. */
    covered: count((pixel) => !isNear(pixel, background, 12)) / (width * height),
    /** The part of the pixels whose colour `accepts` takes. */
    share: (accepts) => count(accepts) / (width * height),
    /** The box of what is not background: [left, top, right, bottom]. */
    box() {
      const box = [width, height, 0, 0];
      for (let y = 0; y < height; ++y)
        for (let x = 0; x < width; ++x) {
          if (isNear(at(x, y), background, 40)) continue;
          box[0] = Math.min(box[0], x);
          box[1] = Math.min(box[1], y);
          box[2] = Math.max(box[2], x);
          box[3] = Math.max(box[3], y);
        }
      return box;
    },
    /** Colours, of four bits a part, that at least a two-thousandth of the picture has. */
    colours() {
      const counts = new Map();
      for (let i = 0; i < data.length; i += 4) {
        const key = (data[i] >> 4) * 256 + (data[i + 1] >> 4) * 16 + (data[i + 2] >> 4);
        counts.set(key, (counts.get(key) ?? 0) + 1);
      }
      return [...counts.values()].filter((number) => number > (width * height) / 2000).length;
    },
  };
}

/** How much two pictures differ: the part of the pixels that are not the same, but for smoothing. */
export function difference(one, other) {
  assert.deepEqual([one.width, one.height], [other.width, other.height]);
  let number = 0;
  for (let i = 0; i < one.data.length; i += 4)
    if ([0, 1, 2].some((part) => Math.abs(one.data[i + part] - other.data[i + part]) > 24)) ++number;
  return number / (one.width * one.height);
}

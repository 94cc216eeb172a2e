// Times the page in chromium (CHROMIUM, or Debian's) beside the program on the same file, in one run: from choosing the
// file to its findings in the page, each time in a page that was just opened, and `igs check --format json`.
//   node bench/page.mjs FILE [PROGRAM]    build/bench/bin/igs without one
// build/page is there (scripts/page --build-only).
import { spawnSync } from 'node:child_process';
import { createRequire } from 'node:module';
import { basename } from 'node:path';
import { fileURLToPath } from 'node:url';
import { serve } from '../web/serve.mjs';

const { chromium } = createRequire(new URL('../web/package.json', import.meta.url))('playwright-core');
const pathOf = (name) => fileURLToPath(new URL(name, import.meta.url));
const [file, program = pathOf('../build/bench/bin/igs')] = process.argv.slice(2);
const repetitions = 7;
/** Seconds between the opening of the page and the choice of a file. */
const pause = 3;

const median = (times) => [...times].sort((a, b) => a - b)[times.length >> 1];

/** Keeps in the page how long it was from the last choice of files to the first finding that is shown. */
function watchFindings() {
  const watch = () => {
    const start = performance.now();
    const observer = new MutationObserver(() => {
      if (document.querySelector('.findings li') === null) return;
      observer.disconnect();
      document.documentElement.dataset.time = String(performance.now() - start);
    });
    delete document.documentElement.dataset.time;
    observer.observe(document.body, { subtree: true, childList: true });
  };
  addEventListener('change', ({ target }) => target.type === 'file' && watch(), { capture: true });
}

/** The milliseconds of the first and the second choice of the file in one page. */
async function timePage(browser, address) {
  const context = await browser.newContext();
  const page = await context.newPage();
  await page.addInitScript(watchFindings);
  await page.goto(address);
  await page.locator('#readiness', { hasText: /^Ready/ }).waitFor();
  await page.waitForTimeout(pause * 1000);
  const times = [];
  for (let i = 0; i < 2; ++i) {
    await page.locator('input[type=file]').setInputFiles(file);
    times.push(Number(await page.locator('html[data-time]').getAttribute('data-time')));
  }
  await context.close();
  return times;
}

function timeProgram() {
  const start = performance.now();
  const { status, error } = spawnSync(program, ['check', '--format', 'json', file], { maxBuffer: 2 ** 30 });
  if (status !== 0 && status !== 1) throw error ?? new Error(`${program} ends with ${status}`);
  return performance.now() - start;
}

const server = await serve(pathOf('../build/page/'));
const executablePath = process.env.CHROMIUM ?? '/usr/bin/chromium';
const browser = await chromium.launch({ executablePath, args: ['--no-sandbox'] });
const rows = [];
for (let i = 0; i < repetitions; ++i) {
  rows.push([timeProgram(), ...(await timePage(browser, `http://127.0.0.1:${server.address().port}/`))]);
}
await browser.close();
server.close();
server.closeAllConnections();

const [native, first, second] = [0, 1, 2].map((column) => median(rows.map((row) => row[column])));
console.log(`| file | program ms | first file / program | second file / program |
|---|---|---|---|
| ${basename(file)} | ${native.toFixed(0)} | ${(first / native).toFixed(2)} | ${(second / native).toFixed(2)} |`);

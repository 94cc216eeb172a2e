// The page as it is used: what is dropped is checked, repaired and saved as by the program.
import assert from 'node:assert/strict';
import { readFileSync, rmSync, writeFileSync } from 'node:fs';
import { basename, join } from 'node:path';
import { test } from 'node:test';
import { gzipSync } from 'node:zlib';
import { faults, phone } from './axe.mjs';
import { example, folder, igs } from './browser.mjs';
import { hostileFile, strangers, texts } from './hostile_file.mjs';
import { served } from './served.mjs';

const button = (page, name) => page.getByRole('button', { name, exact: true });
const files = (page) => page.locator('.files button.file');
const tabs = (page) => page.getByRole('tablist', { name: 'What is known of the file' });
const choose = (page, ...paths) => page.locator('input[type=file]').setInputFiles(paths);

/** Drops files into the middle of the page, as from a folder beside the browser. */
async function drop(page, ...paths) {
  const session = await page.context().newCDPSession(page);
  const { width, height } = page.viewportSize();
  const data = { items: [], files: paths, dragOperationsMask: 1 };
  for (const type of ['dragEnter', 'dragOver', 'drop'])
    await session.send('Input.dispatchDragEvent', { type, x: width / 2, y: height / 2, data });
}

const words = { error: 'Error', warning: 'Warning', note: 'Note' };
const severities = Object.keys(words);

/** What the program finds, as the page says it: [sentence, place, class]. */
function expectedFindings(path) {
  const { errors } = JSON.parse(igs('check', '--format', 'json', path));
  return errors.map(({ severity, consequence, message, de, line, class: name }) => [
    `${words[severity]}${consequence ? ', a consequence' : ''}: ${message}`,
    de === undefined ? `line ${line}` : `DE ${de} · line ${line}`,
    name,
  ]);
}

async function shownFindings(page) {
  await page.locator('[data-finding]').first().waitFor();
  const consequences = page.getByLabel(/^With .* of others$/);
  if (await consequences.isVisible()) await consequences.check();
  return page.locator('li:has(> [data-finding])').evaluateAll((rows) => {
    const textOf = (row, selector) => row.querySelector(selector).textContent;
    return rows.map((row) => ['.sentence', '[data-finding] .where', '.aside a'].map((part) => textOf(row, part)));
  });
}

/** The seconds at which a repair has put a date in the place of one that was none; null where it has not. */
function timeOf(before, after) {
  const dates = (bytes) => bytes.toString('latin1').match(/\d{8}\.\d{6}/g) ?? [];
  const known = dates(before);
  const date = dates(after).find((each) => !known.includes(each));
  if (date === undefined) return null;
  const [, year, month, day, hour, minute, second] = /(....)(..)(..)\.(..)(..)(..)/.exec(date);
  return Date.UTC(year, month - 1, day, hour, minute, second) / 1000;
}

/** The bytes of what the program writes, at that time if it matters, and what it says of it. */
function repairedBy(path, time, options) {
  const out = join(folder, 'native.igs');
  rmSync(out, { force: true });
  if (time !== null) process.env.SOURCE_DATE_EPOCH = time;
  const report = JSON.parse(igs('repair', '--format', 'json', '--summary', ...options, '-o', out, path));
  delete process.env.SOURCE_DATE_EPOCH;
  return { report, bytes: readFileSync(out) };
}

/** What `act` makes the page save. */
async function downloaded(page, act) {
  const waiting = page.waitForEvent('download');
  await act();
  const download = await waiting;
  return { name: download.suggestedFilename(), bytes: readFileSync(await download.path()) };
}

/** Downloads what was repaired, and compares it with what the program does with the file and the words. */
async function assertRepaired(page, path, options = [], act = () => button(page, 'Download').click()) {
  const outcome = page.locator('.outcome', { hasText: / repaired, / });
  await outcome.waitFor();
  const saved = await downloaded(page, act);
  const { report, bytes } = repairedBy(path, timeOf(readFileSync(path), saved.bytes), options);
  const left = severities.flatMap((each) => {
    const number = report.counts[each];
    return number === 0 ? [] : [`${number} ${each}${number === 1 ? '' : 's'}`];
  });
  const sentence = `${report.fixed.length} repaired, ${left.join(', ') || 'no faults'} left`;
  assert.equal(await outcome.textContent(), `${basename(path)}: ${sentence}`);
  assert.equal(saved.name, basename(path).replace(/\.igs(\.gz)?$/, '-repaired.igs'));
  assert.ok(saved.bytes.equals(bytes), `${path} ${options.join(' ')}: other bytes`);
  return report;
}

test('a dropped file shows what the program finds, and is repaired as by it, with options', async (t) => {
  const page = await (await served(t)).open();
  const path = example('bracket-faulty');
  await drop(page, path);
  const [shown, expected] = [await shownFindings(page), expectedFindings(path)];
  assert.ok(expected.some(([sentence]) => sentence.includes(', a consequence')));
  assert.deepEqual([...shown].sort(), [...expected].sort());
  const order = shown.map(([sentence]) => severities.findIndex((each) => sentence.startsWith(words[each])));
  assert.deepEqual(order, [...order].sort(), 'the worst first');

  assert.ok(await button(page, 'Download').isDisabled());
  await button(page, 'Repair').click();
  await assertRepaired(page, path);
  await page.getByLabel('Units').selectOption({ label: 'Millimetres' });
  await page.getByText('Options', { exact: true }).click();
  await page.getByLabel('Keep geometry').check();
  await page.getByLabel('Digits').fill('9');
  await page.getByLabel('Line ends').selectOption('CR LF');
  await button(page, 'Repair').click();
  const settings = ['--units', 'mm', '--keep-geometry', '--digits', '9', '--line-ends', 'crlf'];
  const { summary } = await assertRepaired(page, path, settings);
  await tabs(page).getByRole('tab', { name: 'Changes' }).click();
  const tally = page.getByRole('list', { name: 'What was changed' });
  assert.equal(await tally.getByText(/changed$/).textContent(), `${summary.changed} entities changed`);
  const number = await page.getByRole('region', { name: 'List of changes' }).locator('.value').count();
  assert.equal(number, summary.changes.filter(({ field }) => field !== undefined).length);
});

test('of several files each has its own findings, and those that are no IGES say so', async (t) => {
  const page = await (await served(t)).open();
  const packed = join(folder, 'curves-faulty.igs.gz');
  writeFileSync(packed, gzipSync(readFileSync(example('curves-faulty'))));
  const strange = join(folder, 'strange.igs');
  writeFileSync(strange, 'ISO-10303-21;\nHEADER;\n');
  await drop(page, packed, example('box'), strange);
  const error = 'not an IGES file: it is a STEP file';
  await files(page).nth(2).getByText(error).waitFor();

  assert.deepEqual((await shownFindings(page)).sort(), expectedFindings(packed).sort());
  await button(page, 'Repair').click();
  await assertRepaired(page, packed);
  await files(page).nth(1).click();
  await page.getByText('No faults were found. The file is sound.').waitFor();
  assert.ok(await button(page, 'Download').isDisabled(), 'nothing of the first file');
  await files(page).nth(2).click();
  await page.locator('.failure', { hasText: error }).waitFor();
  assert.ok(await button(page, 'Repair').isDisabled());
  await choose(page, example('box-faulty'));
  assert.equal(await files(page).count(), 4);
  assert.deepEqual((await shownFindings(page)).sort(), expectedFindings(example('box-faulty')).sort());
});

/** Goes on with the tabulator until something has the focus. */
async function tabTo(page, goal) {
  for (let step = 0; step < 60; ++step) {
    await page.keyboard.press('Tab');
    if (await goal.evaluate((element) => element === document.activeElement)) return;
  }
  assert.fail(`the tabulator does not reach ${goal}`);
}

test('from the start to the download by the keyboard alone', async (t) => {
  const page = await (await served(t)).open();
  await tabTo(page, page.locator('.examples').getByRole('button', { name: /^surfaces-faulty/ }));
  await page.keyboard.press('Enter');
  await page.locator('[data-finding]').first().waitFor();
  assert.match(await page.locator(':focus').textContent(), /^surfaces-faulty.igs/);
  await tabTo(page, tabs(page).getByRole('tab', { name: 'Findings' }));
  await page.keyboard.press('ArrowRight');
  assert.equal(await tabs(page).getByRole('tab', { selected: true }).textContent(), 'Picture');
  await page.keyboard.press('End');
  assert.equal(await tabs(page).getByRole('tab', { selected: true }).textContent(), 'Explain');
  await page.keyboard.press('Home');
  await tabTo(page, page.locator('[data-finding]').first());
  await tabTo(page, button(page, 'Repair'));
  await page.keyboard.press('Enter');
  await page.locator('.outcome', { hasText: 'repaired' }).waitFor();
  await tabTo(page, button(page, 'Download'));
  await assertRepaired(page, example('surfaces-faulty'), [], () => page.keyboard.press('Enter'));
});

for (const [name, options] of Object.entries({
  light: { colorScheme: 'light' },
  dark: { colorScheme: 'dark' },
  phone,
}))
  test(`${name}: no serious fault from the start to the repaired file, and nothing beyond the edge`, async (t) => {
    const page = await (await served(t, options)).open();
    const assertGood = async (state) => {
      assert.deepEqual(await faults(page), [], state);
      const over = await page.evaluate(() => document.documentElement.scrollWidth - innerWidth);
      assert.ok(over <= 0, `${state}: ${over} pixels beyond the edge`);
    };
    const press = (target) => (options.hasTouch ? target.tap() : target.click());
    await assertGood('start');
    const path = example('bracket-faulty');
    await choose(page, path, example('box'));
    await page.locator('[data-finding]').first().waitFor();
    await assertGood('findings');
    await press(button(page, 'Repair'));
    await assertRepaired(page, path, [], () => press(button(page, 'Download')));
    await assertGood('repaired');
    for (const tab of await tabs(page).getByRole('tab').all()) {
      await press(tab);
      await assertGood(await tab.textContent());
    }
  });

test('texts of a hostile file stay texts', async (t) => {
  const page = await (await served(t)).open();
  await drop(page, hostileFile());
  await page.locator('[data-finding]').first().waitFor();
  await button(page, 'Repair').click();
  await page.locator('.outcome', { hasText: 'repaired' }).waitFor();
  /** What is waited for in these tabs. */
  const shown = {
    Picture: page.locator('[data-faces][data-ready]'),
    Changes: page.locator('.changes-panel .viewer').getByText(texts.title),
  };
  for (const tab of await tabs(page).getByRole('tab').all()) {
    await tab.click();
    await shown[await tab.textContent()]?.first().waitFor();
    assert.deepEqual(await page.locator(strangers).evaluateAll((all) => all.map((each) => each.outerHTML)), []);
  }
});

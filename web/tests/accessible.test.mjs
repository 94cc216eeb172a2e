// Pages for everyone: without serious faults that axe-core finds, in the dark, on phones, without WebGL, without scripts.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { faults, phone } from './axe.mjs';
import { cameraOf, drawn, example, facesOf, opened, pageOf, picture, stageOf, until } from './browser.mjs';

const sum = (colour) => colour[0] + colour[1] + colour[2];

for (const [name, options] of Object.entries({
  light: { colorScheme: 'light' },
  dark: { colorScheme: 'dark' },
  phone,
}))
  test(`${name}: no serious fault in any panel, with details and with the dialog`, async (t) => {
    const page = await opened(t, pageOf(example('bracket'), '--compare', example('bracket-faulty')), options);
    const { background } = await picture(page);
    assert.ok(name === 'dark' ? sum(background) < 200 : sum(background) > 600, `background ${[...background]}`);
    await drawn(page, () =>
      page.keyboard.press('Tab').then(() => page.getByRole('listitem').getByRole('button').first().click()),
    );
    for (const tab of await page.getByRole('tab').all()) {
      await tab.click();
      assert.deepEqual(await faults(page), [], await tab.textContent());
    }
    await drawn(page, () => page.getByRole('button', { name: 'Section' }).click());
    await drawn(page, () => page.getByRole('button', { name: 'Measure' }).click());
    assert.deepEqual(await faults(page), [], 'cards');
    await page.getByRole('button', { name: 'Keys' }).click();
    assert.deepEqual(await faults(page), [], 'dialog');
  });

test('a phone shows it all without scrolling aside', async (t) => {
  const page = await opened(t, pageOf(example('flange-faulty')), phone);
  const { covered } = await picture(page);
  assert.ok(covered > 0.003, `${covered} of the picture is covered`);
  for (const tab of await page.getByRole('tab').all()) {
    await tab.tap();
    const [needed, seen] = await page.evaluate(() => [document.documentElement.scrollWidth, innerWidth]);
    assert.ok(needed <= seen && seen === 360, `${await tab.textContent()}: ${needed} of ${seen}`);
  }
  await page.getByRole('tab', { name: 'Findings' }).tap();
  const camera = await cameraOf(page);
  await drawn(page, () => page.locator('[data-finding]:visible').filter({ hasText: '(DE ' }).first().tap());
  assert.notEqual(await cameraOf(page), camera);
  const { height } = await stageOf(page).boundingBox();
  assert.ok(height >= 200, `${height} pixels of picture`);
});

test('another theme is chosen by hand', async (t) => {
  const page = await opened(t, pageOf(example('box')), { colorScheme: 'light' });
  const parts = [stageOf(page), page.getByRole('region', { name: 'Details' })];
  const backgrounds = async () => Promise.all(parts.map(async (part) => sum((await picture(page, part)).background)));
  const before = await backgrounds();
  await drawn(page, () => page.getByRole('button', { name: 'Dark' }).click());
  (await backgrounds()).forEach((background, i) => assert.ok(background < before[i] - 400));
  assert.equal(await facesOf(page), 6);
});

const lacks = {
  'WebGL 2': {
    init: () => {
      const original = HTMLCanvasElement.prototype.getContext;
      HTMLCanvasElement.prototype.getContext = function (kind, ...more) {
        return kind.startsWith('webgl') ? null : original.call(this, kind, ...more);
      };
    },
    allowed: /^warning: Error: /,
    sentence: /still picture.*WebGL/is,
  },
  scripts: { javaScriptEnabled: false, sentence: /still picture.*scripts/is },
};
for (const [name, { sentence, ...options }] of Object.entries(lacks))
  test(`without ${name} there are the still picture and a sentence`, async (t) => {
    const page = await opened(t, pageOf(example('flange-faulty')), { still: true, ...options });
    await until(async () => sentence.test(await page.locator('body').innerText()), String(sentence));
    const box = await page.locator('svg').first().boundingBox();
    assert.ok(box.width > 200 && box.height > 200, `${box.width} x ${box.height}`);
    assert.ok((await picture(page, page.locator('svg').first())).colours() >= 3);
    assert.equal(await page.locator('canvas').count(), 0);
  });

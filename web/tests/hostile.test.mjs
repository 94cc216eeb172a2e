// Texts of a file are texts in its page, whatever they hold.
import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { test } from 'node:test';
import { opened, pageOf } from './browser.mjs';
import { hostileFile, name, strangers, texts } from './hostile_file.mjs';

test('a page of hostile texts shows them and does nothing else', async (t) => {
  const made = pageOf(hostileFile());
  const markup = readFileSync(made, 'utf8');
  // The page and its still picture have titles.
  const elements = (tag) => markup.split(new RegExp(`<${tag}\\b`)).length - 1;
  assert.deepEqual([elements('script'), elements('style'), elements('title'), elements('img')], [2, 1, 2, 0]);

  const page = await opened(t, made);
  assert.equal(await page.title(), name);
  for (const tab of await page.getByRole('tab').all()) {
    await tab.click();
    const closed = page.locator('[aria-expanded=false]:visible');
    while ((await closed.count()) > 0) await closed.first().click();
  }
  await page.getByRole('tab', { name: 'Findings' }).click();
  const facts = page.getByRole('region', { name: 'Details' }).locator('dd');
  const said = new Set();
  for (const row of await page.locator('[data-finding]').all()) {
    await row.click();
    for (const fact of await facts.allTextContents()) said.add(fact.replace(/ \(#.*\)$/, ' as a colour'));
  }
  for (const text of [texts.script, texts.title, texts.comment])
    assert.ok(said.has(text) && said.has(`${text} as a colour`), `${text} in ${[...said].join('\n')}`);
  assert.equal(await page.locator(strangers).count(), 0);
});

test('without scripts, too', async (t) => {
  const made = pageOf(hostileFile());
  const page = await opened(t, made, { still: true, javaScriptEnabled: false });
  assert.equal(await page.title(), name);
  const still = page.locator('svg').first();
  assert.ok((await still.textContent()).includes(texts.script));
  assert.equal(await page.locator('img, iframe, object, embed, u').count(), 0);
});

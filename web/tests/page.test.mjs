// Pages of the examples: what they draw, and what one can do with them.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import {
  cameraOf,
  difference,
  drawn,
  example,
  facesOf,
  igs,
  opened,
  pageOf,
  picture,
  stageOf,
  until,
} from './browser.mjs';

const figuresOf = (file) => JSON.parse(igs('info', '--geometry', '--format', 'json', file)).geometry;
const isBlue = ([red, green, blue]) => blue > 120 && blue > red + 60 && blue > green + 20;
const isOrange = ([red, green, blue]) => red > 120 && red > green + 35 && green > blue + 25;
const rows = (page) => page.locator('[data-finding]:visible');
const details = (page) => page.getByRole('region', { name: 'Details' });
const tab = (page, name) => page.getByRole('tab', { name }).click();

async function clickMiddle(page) {
  const { width, height } = await stageOf(page).boundingBox();
  await stageOf(page).click({ position: { x: width / 2, y: height / 2 } });
}

for (const name of ['box', 'bracket-faulty', 'curves', 'drawing-faulty', 'flange', 'surfaces-faulty']) {
  test(`${name} is drawn by a page that asks for nothing`, async (t) => {
    const file = example(name);
    const page = await opened(t, pageOf(file));
    assert.equal(await facesOf(page), figuresOf(file).faces);
    const { covered, colours, box, width, height } = await picture(page);
    assert.ok(covered > 0.003 && covered < 0.9, `${covered} of the picture is covered`);
    assert.ok(colours() >= (figuresOf(file).faces > 0 ? 4 : 2), `${colours()} colours`);
    const [left, top, right, bottom] = box();
    assert.ok(left > 2 && top > 2 && right < width - 3 && bottom < height - 3, 'all of it is in view');
    const policy = await page.locator('meta[http-equiv=Content-Security-Policy]').getAttribute('content');
    assert.match(policy, /^default-src 'none'; script-src 'sha256-[^' ]+'; style-src 'sha256-[^' ]+';/);
    assert.doesNotMatch(policy, /unsafe|\*|https?:/);
  });
}

test('a finding that is chosen comes into view, marked', async (t) => {
  const file = example('surfaces-faulty');
  const page = await opened(t, pageOf(file));
  const camera = await cameraOf(page);
  const blue = (await picture(page)).share(isBlue);
  const faulty = rows(page).filter({ hasText: '120 Surface of Revolution (DE 51)' });
  await drawn(page, () => faulty.first().click());
  assert.equal(await faulty.first().getAttribute('aria-current'), 'true');
  assert.notEqual(await cameraOf(page), camera);
  assert.ok((await picture(page)).share(isBlue) > blue + 0.001);
  const [, de] = /\(DE (\d+)\)/.exec(await faulty.first().textContent());
  assert.match(await details(page).textContent(), new RegExp(`DE${de}\\D`));

  const severities = await rows(page).evaluateAll((all) =>
    all.map((row) => row.textContent.match(/Error|Warning|Note/)[0]),
  );
  assert.deepEqual(severities, [...severities].sort(), 'the worst first');
});

test('a face that is clicked shows what the program prints of it', async (t) => {
  const file = example('box');
  const page = await opened(t, pageOf(file));
  await drawn(page, () => clickMiddle(page));
  assert.ok((await picture(page)).share(isBlue) > 0.05);
  const facts = await details(page).locator('dd').allTextContents();
  const de = facts.find((fact) => /^\d+$/.test(fact));
  assert.match(facts.join('\n'), /^510 Face, form 1$/m);
  const printed = igs('print', file).split(`@${de}(510) = {`)[1].replaceAll(/\s/g, '').toLowerCase();
  const fields = await details(page)
    .locator('tbody tr')
    .evaluateAll((all) => all.map((row) => [...row.cells].map((cell) => cell.textContent)));
  assert.ok(fields.length >= 3);
  for (const [label, value] of fields) {
    const name = label.replaceAll('_', '').toLowerCase();
    const expected = value.startsWith('DE ') ? `@${value.slice(3)}(` : `${name}=${value}`;
    assert.ok(printed.includes(expected), `${label} = ${value}`);
  }
});

test('keys do what the mouse does', async (t) => {
  const page = await opened(t, pageOf(example('surfaces-faulty')));
  const start = await cameraOf(page);
  for (let i = 0; i < 20 && !(await stageOf(page).evaluate((stage) => stage === document.activeElement)); ++i)
    await page.keyboard.press('Tab');
  const press = (key) => drawn(page, () => page.keyboard.press(key));
  await press('ArrowLeft');
  const turned = await cameraOf(page);
  assert.notEqual(turned, start);
  await press('n');
  const current = page.locator('[data-finding][aria-current=true]');
  const first = await current.textContent();
  await press('n');
  assert.notEqual(await current.textContent(), first);
  await press('p');
  assert.equal(await current.textContent(), first);
  await press('Escape');
  await press('7');
  await press('f');
  const faces = await facesOf(page);
  assert.ok(faces > 0);
  await press('w');
  assert.equal(await facesOf(page), 0);
  await press('b');
  assert.equal(await facesOf(page), faces);
  for (const [key, card] of Object.entries({ m: 'Measure', x: 'Section' })) {
    const region = page.getByRole('region', { name: card });
    await press(key);
    assert.ok(await region.isVisible(), card);
    await press(key);
    assert.ok(await region.isHidden(), card);
  }
  await page.keyboard.press('?');
  await page.getByRole('dialog', { name: 'Keys' }).waitFor();
  await page.keyboard.press('Escape');
  await page.getByRole('dialog').waitFor({ state: 'hidden' });
});

test('what is shown is filtered by type, severity and name', async (t) => {
  const file = example('surfaces-faulty');
  const page = await opened(t, pageOf(file));
  await tab(page, 'Show');
  const { faces } = figuresOf(file);
  const shows = (number, what) => until(async () => (await facesOf(page)) === number, `${number} faces ${what}`);
  const trimmed = page.getByRole('checkbox', { name: /^144 / });
  const ofType = Number((await trimmed.locator('..').textContent()).match(/\d+$/)[0]);
  await trimmed.uncheck();
  await shows(faces - ofType, 'without those of a type');
  await trimmed.check();
  await shows(faces, 'again');
  const errors = page.getByRole('checkbox', { name: 'errors' });
  await errors.check();
  await until(async () => (await facesOf(page)) < faces, 'fewer faces with errors');
  await errors.uncheck();
  await page.getByRole('searchbox').fill('no such name');
  await shows(0, 'without a name');
  await page.getByRole('button', { name: 'Show all', exact: true }).click();
  await shows(faces, 'in the end');
});

test('a plane cuts the model open', async (t) => {
  const page = await opened(t, pageOf(example('box')));
  assert.equal((await picture(page)).share(isOrange), 0);
  await drawn(page, () => page.getByRole('button', { name: 'Section' }).click());
  const half = await picture(page);
  assert.ok(half.share(isOrange) > 0.005, 'the inside is seen');
  const slider = page.getByRole('slider');
  assert.match(await slider.getAttribute('aria-valuetext'), /^x = 30\b/);
  await drawn(page, () => slider.fill('0.2'));
  assert.ok(difference(half, await picture(page)) > 0.02);
});

test('the distance of two corners is measured', async (t) => {
  const page = await opened(t, pageOf(example('box')));
  await drawn(page, () => page.getByRole('combobox', { name: 'Standard view' }).selectOption('Front'));
  const [left, top, right, bottom] = (await picture(page)).box();
  await drawn(page, () => page.keyboard.press('m'));
  for (const position of [
    { x: left + 2, y: bottom - 2 },
    { x: right - 2, y: top + 2 },
  ])
    await drawn(page, () => stageOf(page).click({ position }));
  const card = page.getByRole('region', { name: 'Measure' });
  assert.deepEqual(
    (await card.locator('dd').allTextContents()).map((text) => Number.parseFloat(text)),
    [65, 60, 0, 25],
  );
});

test('a comparison shows what a repair changed', async (t) => {
  const page = await opened(t, pageOf(example('bracket'), '--compare', example('bracket-faulty')));
  assert.match(await page.title(), /bracket-faulty\.igs.*bracket\.igs/);
  await tab(page, 'Changes');
  const changed = page.getByRole('tabpanel', { name: 'Changes' }).getByRole('listitem').getByRole('button');
  const { changes } = JSON.parse(igs('diff', '--format', 'json', example('bracket-faulty'), example('bracket')));
  const entities = new Set(changes.map(({ old_de: de }) => de).filter((de) => de !== undefined));
  assert.equal(await changed.count(), entities.size);
  const blue = (await picture(page)).share(isBlue);
  await drawn(page, () => changed.first().click());
  const both = await picture(page);
  assert.ok(both.share(isBlue) > blue + 0.0005, 'marked');
  await drawn(page, () => page.getByRole('radio', { name: 'Before' }).check({ force: true }));
  assert.ok(difference(both, await picture(page)) > 0.0005, 'one side alone');
});

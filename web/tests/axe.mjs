// What axe-core finds in a page, and the phone that it is shown on.
import { readFileSync } from 'node:fs';
import { createRequire } from 'node:module';

const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');
export const phone = { viewport: { width: 360, height: 640 }, hasTouch: true, isMobile: true };

/** Serious ones. */
export async function faults(page) {
  if (!(await page.evaluate(() => 'axe' in globalThis))) await page.evaluate(axe);
  const { violations } = await page.evaluate(() => globalThis.axe.run());
  return violations
    .filter(({ impact }) => impact === 'serious' || impact === 'critical')
    .map(({ id, nodes }) => `${id}: ${nodes.map(({ target }) => target.join(' ')).join(', ')}`);
}

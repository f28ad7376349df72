// node browser.mjs FOLDER: opens each page of the folder in Chromium and leaves pictures beside it. The exit
// code is 1 if a page is at fault.
import { readdirSync, readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { join } from 'node:path';
import { pathToFileURL } from 'node:url';
import { chromium } from 'playwright-core';

const folder = process.argv[2];
const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');
const views = [
  { name: 'phone', width: 390, height: 844 },
  { name: 'desktop', width: 1280, height: 900 },
];
const tallest = 8000; // of a picture
let faults = 0;

function fault(where, what) {
  ++faults;
  console.log(`${where}: ${what}`);
}

const browser = await chromium.launch({
  executablePath: '/usr/bin/chromium',
  args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--disable-background-networking',
         '--disable-component-update', '--disable-sync', '--no-first-run'],
});

// Opens a page in a window of its own and watches what it asks for.
async function open(file, where, options) {
  const context = await browser.newContext(options);
  const page = await context.newPage();
  const url = pathToFileURL(join(folder, file)).href;
  page.on('request', (request) => {
    if (request.url().split('#')[0] !== url) fault(where, `asks for ${request.url()}`);
  });
  page.on('console', (message) => fault(where, `the console says: ${message.text()}`));
  page.on('dialog', (dialog) => { fault(where, 'ran a script'); dialog.dismiss(); });
  await page.goto(url);
  return page;
}

async function picture(page, name) {
  const height = await page.evaluate(() => document.documentElement.scrollHeight);
  const { width } = page.viewportSize();
  await page.screenshot({
    path: join(folder, `${name}.png`), fullPage: true,
    clip: { x: 0, y: 0, width, height: Math.min(height, tallest) },
  });
}

// The first ten hosts of an index are opened, so that they are looked at, too.
async function unfold(page) {
  await page.evaluate(() => [...document.querySelectorAll('details')].slice(0, 10)
    .forEach((details) => { details.open = true; }));
}

async function check(page, where) {
  const tooWide = await page.evaluate(() => document.documentElement.scrollWidth - innerWidth);
  if (tooWide > 0) fault(where, `${tooWide} pixels wider than the screen`);
  await page.evaluate(axe);
  const found = await page.evaluate(() => window.axe.run({ resultTypes: ['violations'] }));
  for (const { id, help, nodes } of found.violations) {
    fault(where, `axe-core: ${id}: ${help}: ${nodes.length} times: ${nodes[0].html.slice(0, 200)}`);
  }
}

// The first key leads to the link that skips the header, the next one past it.
async function useKeyboard(page, where) {
  await page.keyboard.press('Tab');
  const isSeen = await page.evaluate(() => {
    const box = document.activeElement.getBoundingClientRect();
    return document.activeElement.className === 'skip' && box.left >= 0 && box.top >= 0;
  });
  if (!isSeen) fault(where, 'the first key does not show the link to the report');
  await page.keyboard.press('Enter');
  if (!await page.evaluate(() => document.activeElement.id === 'main')) {
    fault(where, 'the link does not lead to the report');
  }
}

const files = readdirSync(folder).filter((file) => file.endsWith('.html')).sort();
for (const file of files) {
  const name = file.replace(/\.html$/, '');
  for (const { name: view, width, height } of views) {
    for (const colorScheme of ['light', 'dark']) {
      const where = `${name}-${view}-${colorScheme}`;
      const page = await open(file, where, { viewport: { width, height }, colorScheme });
      await picture(page, where);
      await unfold(page);
      await check(page, where);
      await useKeyboard(page, where);
      await page.context().close();
    }
  }
  const where = `${name}-print`;
  const page = await open(file, where, { viewport: { width: 794, height: 1123 }, colorScheme: 'dark' });
  await page.pdf({ path: join(folder, `${where}.pdf`), format: 'A4', margin: { top: '15mm', bottom: '15mm', left: '12mm', right: '12mm' } });
  await page.context().close();
}
await browser.close();
console.log(`${files.length} pages, ${faults} faults`);
process.exit(faults === 0 ? 0 : 1);

// Opens pages in a browser: node browser.js CHROMIUM PAGE ...
// At three widths and in both colour schemes, with one family of fonts at a time: a page must write no message
// to the console, make no request, hold nothing that runs, show every space of a name, keep its text inside its
// boxes and need no horizontal scroll bar, and axe-core must find no violation. Tells what is wrong and ends with
// the status 1.
'use strict';
const fs = require('fs');
const os = require('os');
const path = require('path');
const { pathToFileURL } = require('url');
const packages = path.join(process.cwd(), 'node_modules');
const { chromium } = require(path.join(packages, 'playwright-core'));
const axeSource = fs.readFileSync(path.join(packages, 'axe-core/axe.min.js'), 'utf8');

const [executable, ...pages] = process.argv.slice(2);
const fonts = ['/usr/share/fonts/truetype/dejavu', '/usr/share/fonts/truetype/liberation'];
const widths = [360, 800, 1920];
const schemes = ['light', 'dark'];
// axe-core looks at every element: for pages that are longer than this, it would take minutes.
const longestForAxe = 400000;

const faults = new Set();
const tell = (page, text) => faults.add(`${path.basename(page)}: ${text}`);

// The system's rules, such as which font stands for sans-serif, and the fonts of one folder.
const options = (fontFolder, folder) => {
  const config = path.join(folder, 'fonts.conf');
  const rules = '<include>/etc/fonts/conf.d</include>';
  fs.writeFileSync(config,
    `<fontconfig><dir>${fontFolder}</dir><cachedir>${folder}</cachedir>${rules}</fontconfig>`);
  return {
    executablePath: executable,
    headless: true,
    env: { ...process.env, FONTCONFIG_FILE: config },
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
      '--disable-background-networking', '--disable-component-update', '--disable-sync'],
  };
};

// Runs in the page: elements, attributes and links that no page has.
const lookForMarkup = () => {
  const found = [];
  const known = new Set(('html head meta title style body header main section footer nav h1 h2 h3 h4 p b i ' +
    'small code a ul ol li dl dt dd div span bdi wbr table thead tbody tr th td details summary svg rect path desc')
    .split(' '));
  for (const element of document.querySelectorAll('*')) {
    if (!known.has(element.localName)) found.push(`there is an element ${element.localName}`);
    for (const { name, value } of element.attributes) {
      if (name.startsWith('on') || name === 'style' || name === 'src') found.push(`there is an attribute ${name}`);
      if (name === 'href' && !value.startsWith('#')) found.push(`a link leads to ${value}`);
    }
  }
  return found.slice(0, 10);
};

// Runs in the page: unfolds and renders all of it, also what is not on the screen.
const unfold = () => {
  document.querySelectorAll('details').forEach((one) => (one.open = true));
  document.querySelectorAll('.long li').forEach((one) => (one.style.contentVisibility = 'visible'));
};

// Runs in the page: names of which the screen does not show every space.
const lookForLostSpaces = () =>
  [...document.querySelectorAll('bdi')].filter((name) => name.innerText !== name.textContent)
    .slice(0, 10).map((name) => `spaces of "${name.textContent}" are lost`);

// Runs in the page: what leaves its box.
const lookForOverflow = () => {
  const found = [];
  if (document.documentElement.scrollWidth > window.innerWidth) found.push('there is a horizontal scroll bar');
  const boxes = 'li,p,td,th,dt,dd,h1,h2,h3,h4,summary,.row>div,.ends';
  const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
  const range = document.createRange();
  while (walker.nextNode()) {
    const node = walker.currentNode;
    const box = node.parentElement.closest(boxes);
    if (!node.data.trim() || !box || node.parentElement.closest('svg,thead')) continue;
    range.selectNodeContents(node);
    const outer = box.getBoundingClientRect();
    // Only a wide page cuts rows; what they lose is in the tables.
    const isCut = getComputedStyle(box).overflow === 'hidden' && window.innerWidth > 704;
    for (const inner of range.getClientRects()) {
      const leaves = inner.left < outer.left - 1 || inner.bottom > outer.bottom + 4 || inner.top < outer.top - 4 ||
        (!isCut && inner.right > outer.right + 1) || outer.right > window.innerWidth;
      if (leaves && inner.width > 0) found.push(`"${node.data.slice(0, 40)}" leaves its box`);
    }
  }
  for (const bar of document.querySelectorAll('svg rect')) {
    const [inner, outer] = [bar.getBoundingClientRect(), bar.ownerSVGElement.getBoundingClientRect()];
    if (inner.left < outer.left - 1 || inner.right > outer.right + 1) found.push('a bar leaves its picture');
  }
  return found.slice(0, 10);
};

const lookAt = async (context, file) => {
  const page = await context.newPage();
  const address = pathToFileURL(file).href;
  page.on('console', (message) => tell(file, `console: ${message.text()}`));
  page.on('pageerror', (error) => tell(file, `error: ${error}`));
  page.on('dialog', (dialog) => tell(file, `dialog: ${dialog.message()}`));
  page.on('request', (request) => {
    if (request.url() !== address) tell(file, `request: ${request.url()}`);
  });
  await page.goto(address);
  for (const fault of await page.evaluate(lookForMarkup)) tell(file, fault);
  await page.evaluate(unfold);
  for (const fault of await page.evaluate(lookForLostSpaces)) tell(file, fault);
  for (const width of widths) {
    await page.setViewportSize({ width, height: 900 });
    for (const fault of await page.evaluate(lookForOverflow)) tell(file, `${fault} at a width of ${width}`);
  }
  if (fs.statSync(file).size <= longestForAxe) {
    await page.evaluate(axeSource);
    const { violations } = await page.evaluate(() => axe.run({ resultTypes: ['violations'] }));
    for (const { id, nodes } of violations) tell(file, `axe: ${id}: ${nodes[0].html.slice(0, 200)}`);
  }
  await page.close();
};

const main = async () => {
  for (const fontFolder of fonts) {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'morvane_report_'));
    for (const colorScheme of schemes) {
      const profile = path.join(folder, colorScheme);
      const context = await chromium.launchPersistentContext(profile, { ...options(fontFolder, folder), colorScheme });
      for (const file of pages) await lookAt(context, file);
      await context.close();
    }
    fs.rmSync(folder, { recursive: true, force: true });
  }
  faults.forEach((fault) => console.error(fault));
  process.exit(faults.size > 0 ? 1 : 0);
};

main();

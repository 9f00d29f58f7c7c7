// The web console in a real browser, on the program as built and the simulated UPS.
//
// node browser_test.mjs PROGRAM-FOLDER UPSSIM HASH_LINES CHROMIUM
import assert from 'node:assert/strict';
import {execFileSync} from 'node:child_process';
import {after, before, describe, test} from 'node:test';
import {chromium} from 'playwright-core';
import {Monitor, sight} from './monitor.mjs';

const [programFolder, simulator, hashLines, browserPath] = process.argv.slice(2);
const shown = {state: 'visible'};

// Each way of writing a password meets one of the languages.
const runs = [
  {language: 0, lang: 'en', login: 'abc', control: 'control', more: testBehaviour},
  {language: 1, lang: 'zh-Hant', login: 'eight888', control: '控制密碼', more: testControl},
  {language: 2, lang: 'zh-Hans', login: 'twenty-characters-20', control: ''},
  {language: 1, lang: 'zh-Hant', login: '電池密碼abc', control: 'x'},
];

// How each page is reached, and a sign that it is the one.
const pages = [
  ['the status page', '/index.htm', '#input'],
  ['the control page', '/controlmain.htm', '[data-power=S]'],
  ['the form for data', '/data.htm', '#query'],
  ['the data of an hour', '/data.htm', 'td', '#query .main'],
  ['the form for a chart', '/chart.htm', '#measures'],
  ['the chart of an hour', '/chart.htm', '#asked', '#query .main'],
  ['the large chart', '/chart.htm', '[href="/chart.htm"].button', '#large'],
  ['the month of the schedule', '/schedule.htm', 'td.today'],
  ['the day of the schedule', '/schedule.htm', '#entry', 'td.today'],
  ['the month of the events', '/eventselect.htm', 'td.today img'],
  ['the day of the events', '/eventselect.htm', 'td:has-text(":")', 'td.today'],
  ['the page about it', '/about.htm', 'dl'],
];

let browser;
before(async () => {
  browser = await chromium.launch({executablePath: browserPath, args: ['--no-sandbox']});
});
after(() => browser.close());

async function logIn(page, password, sign) {
  await page.fill('#password', password);
  await page.press('#password', 'Enter');
  await page.waitForSelector(sign, shown);
}

// A picture that the page fetches by script has no address at first; one that can't be had never
// gets a width.
async function pictures(page, name) {
  const missing = () => [...document.images].filter(picture => !picture.naturalWidth);
  await page.waitForFunction(`(${missing})().length === 0`).catch(async () => assert.fail(
    `${name}: ${await page.evaluate(`(${missing})().map(picture => picture.outerHTML)`)}`));
}

const lamp = (page, text, key, value) =>
  page.waitForSelector(`.lamp[data-${key}="${value}"]:has-text("${text}")`, shown);

describe('the web console', {concurrency: true}, () => {
  for (const run of runs) {
    describe(`${run.lang}, password ${run.login}`, {concurrency: 1}, () => {
      const faults = [];
      let monitor;
      let page;
      before(async () => {
        monitor = await Monitor.start(programFolder, simulator, run);
        page = await (await browser.newContext({baseURL: monitor.address})).newPage();
        page.setDefaultTimeout(30_000);
        page.on('pageerror', error => faults.push(`${page.url()}: ${error.message}`));
        page.on('console', line => line.type() === 'error' &&
          faults.push(`${page.url()}: ${line.text()} ${line.location().url}`));
      });
      after(() => monitor.stop());

      test('a wrong password comes back to the login page', async () => {
        await page.goto('/controlmain.htm');
        await logIn(page, run.login + '.', '#hint');
        assert.equal(await page.getAttribute('html', 'lang'), run.lang);
        await logIn(page, run.login, '#input');
      });

      test('each page opens with all its pictures', async () => {
        await page.waitForSelector('#input:has-text("220.5")');
        for (const [name, path, sign, way] of pages) {
          await page.goto(path);
          if (way) await page.click(way);
          await page.waitForSelector(sign);
          await pictures(page, name);
          assert.equal(await page.getAttribute('html', 'lang'), run.lang, name);
        }
      });

      run.more?.(run, () => [monitor, page]);
      test('there was no error', () => assert.deepEqual(faults, []));
    });
  }
});

function testBehaviour(run, started) {
  test('the hash is the server\'s', async () => {
    const [, page] = started();
    const letters = [...'aZ09 ~äßΩ電池密碼😀'];
    const letter = () => letters[Math.floor(Math.random() * letters.length)];
    const password = (_, i) => Array.from({length: i % 32}, letter).join('');
    const passwords = Array.from({length: 200}, password);
    await page.goto('/controlmain.htm');
    const hashes = await page.evaluate(texts => texts.map(text => hash(text)), passwords);
    const lines = execFileSync(hashLines, {input: passwords.join('\n') + '\n', encoding: 'utf8'});
    assert.deepEqual(hashes, lines.trim().split('\n'));
  });

  test('values follow the UPS on the page as it stands', async () => {
    const [monitor, page] = started();
    await page.goto('/index.htm');
    await page.waitForSelector('#load');  // a sensor found late changes the page's form
    await page.evaluate(() => { window.stays = true; });
    await monitor.order('load 61');
    await monitor.order('mains off');
    await page.waitForSelector('#load:has-text("61 %")');
    await lamp(page, 'Mains power failed', 'bad', 1);
    await page.waitForSelector('td:has-text("Mains power failed")');
    assert.equal(await page.textContent('#input'), '0 V');
    await monitor.order('mains on');
    await lamp(page, 'Mains power present', 'bad', 0);
    assert.ok(await page.evaluate(() => window.stays));
    assert.match(await page.textContent('[data-degrees]'), /^[\d.]+ °C$/);
    const tab = await page.context().newPage();  // whose errors don't count
    await tab.goto('/index.htm');
    await tab.route('**/index.htm', route => route.abort());
    await tab.waitForSelector('.silent');
    assert.equal(await tab.evaluate(
      () => getComputedStyle(document.querySelector('[data-connected]')).opacity), '0.4');
    await tab.close();
  });

  test('a page names the hour that it shows, in a second tab too', async () => {
    const [, page] = started();
    await page.goto('/chart.htm');
    await page.click('#query .main');
    await page.waitForSelector('#chart');
    const [address, heading] = [page.url(), await page.textContent('#asked')];
    const tab = await page.context().newPage();
    for (const empty of ['/data.htm', '/showpic.htm', '/showpic1.htm']) {
      await tab.goto(`${empty}#2026/1/2/3`);
      await tab.waitForSelector('#none');
      assert.match(await tab.textContent('#asked'), /^2026\/01\/02 .* 03:00/);
      assert.ok(!await tab.isVisible('#chart'));
    }
    for (const [path, sign] of [['showpic', '#chart'], ['showpic1', '#chart'], ['data', 'td']]) {
      await tab.goto(address.replace('showpic', path));
      await tab.waitForSelector(sign);
      assert.equal(await tab.textContent('#asked'), heading);
    }
    await tab.route('**/chart.bmp', async route => {  // Another page gets in between.
      await page.evaluate(value => ask('/showpic.htm', {T1: value}),
        address.match(/#(.*)\/63/)[1].replace(/\/(\d+)$/, ' $1 0'));
      await route.continue();
    }, {times: 1});
    await tab.goto(address);
    await tab.waitForSelector('#chart');
    assert.ok(await tab.evaluate(hasCurves), 'a picture without its curves');
    await tab.goto(address.replace('showpic', 'data'));
    await tab.waitForSelector('td');
    assert.equal(await tab.evaluate(
      () => getComputedStyle(document.querySelector('th')).position), 'sticky');
    await tab.close();
  });

  test('reload and Back show the present month, Space presses a day', async () => {
    const [, page] = started();
    for (const path of ['/schedule.htm', '/eventselect.htm']) {
      const isPresent = value => page.waitForFunction(
        wanted => Boolean(document.querySelector('td.today')) === wanted, value);
      await page.goto(path);
      for (const way of ['goBack', 'reload']) {
        await isPresent(true);
        await page.click('[data-turn="1"]');
        await isPresent(false);
        await page[way]();
      }
      await isPresent(true);
      await page.press('td.today', ' ');
      await page.waitForSelector('#to_month');
      await page.goBack();
      await isPresent(true);
    }
  });

  test('schedule entries come and go', async () => {
    const [, page] = started();
    const questions = new Set();
    page.on('dialog', dialog => questions.add(dialog.message()) && dialog.accept());
    await page.goto('/schedule.htm');
    await page.click('[data-turn="12"]');
    await page.click('td[onclick]:has-text("15")');
    const repeats = {D: 'Daily', W: /^[A-Z].*day$/, M: 'Monthly on day 15', N: 'Once'};
    const actions = [...'TLCSRABM'];
    for (const [index, action] of actions.entries()) {
      const repeat = 'DWMN'[index % 4];
      await page.selectOption('#action', action);
      await page.selectOption('#repeat', repeat);
      await page.click('#entry button');
      const cell = column =>
        page.locator('#entries tbody tr').nth(index).locator('td').nth(column).textContent();
      assert.equal(await cell(2), await page.textContent(`#action option[value=${action}]`));
      assert.equal(await cell(3), 'RB'.includes(action) ? '07:00 next day' : '');
      assert.match(await cell(4), new RegExp(repeats[repeat]));
    }
    await page.click('#to_month');
    await page.locator('td[onclick]:has-text("15") img').nth(actions.length - 1).waitFor();
    await pictures(page, 'the month with entries');
    await page.click('td[onclick]:has-text("15")');
    const numbers = await page.locator('#entries tbody td:first-child').allTextContents();
    const rows = count => page.waitForFunction(
      wanted => byId('entries').tBodies[0].rows.length === wanted, count);
    for (const way of ['DN', 'DW', 'DM']) {
      await page.click(`[onclick*='"${way}${numbers[0]}"']`);
      await page.waitForSelector(`td:has-text("${numbers[0]} cancelled on this date")`);
      await page.click('tr:has-text("cancelled on this date") [onclick*=DA]');  // brings it back
      await rows(numbers.length);
    }
    await page.click(`[onclick*='"DA${numbers[0]}"']`);
    await rows(numbers.length - 1);
    for (const question of ['Delete whole entry?', 'Delete this date only?']) {
      assert.ok(questions.has(question), question);
    }
  });
}

function testControl(run, started) {
  test('commands reach the UPS, and what cuts power only with the password', async () => {
    const [monitor, page] = started();
    page.on('dialog', dialog => dialog.accept());
    await page.goto('/controlmain.htm');
    const sent = pattern =>
      sight(pattern, () => monitor.commands().find(line => pattern.test(line)));
    for (const [letter, line] of [['T', /^T$/], ['P', /^CT$/]]) {
      await page.click(`[data-command=${letter}]`);
      await sent(line);
    }
    await page.click('#timed button');
    await sent(/^T10$/);
    for (const password of ['', run.control + '.']) {
      await page.fill('#password', password);
      for (const letter of 'SMARB') await page.click(`[data-power=${letter}]`);
    }
    await page.click('[data-command=Q]');
    await sent(/^Q$/);
    assert.ok(!monitor.commands().some(line => line.startsWith('S')));
    await page.fill('#password', run.control);
    await page.click('[data-power=S]');
    await sent(/^S01(R9999)?$/);
    await page.waitForSelector('.lamp[data-bad="1"]');
    await page.click('[data-command=C]');
    await page.waitForSelector('.lamp[data-bad="0"]');
    await page.waitForSelector('#done:has-text("已取消")');
    await page.click('[data-power=R]');
    await sent(/^S01R(?!9999)\d{4}$/);
    await monitor.order('silent on');
    await lamp(page, '未連線', 'good', 0);
    for (const [letter, word] of [['C', '未取消'], ['Q', '等到連線'], ['S', 'UPS 不會收到']]) {
      await page.click(letter === 'S' ? '[data-power=S]' : `[data-command=${letter}]`);
      await page.waitForSelector(`#done:has-text("${word}")`);
    }
  });
}

// Whether the chart shows the input voltage.
function hasCurves() {
  const canvas = new OffscreenCanvas(385, 270).getContext('2d');
  canvas.drawImage(byId('chart'), 0, 0);
  const bytes = canvas.getImageData(0, 0, 385, 270).data;
  return bytes.some((red, i) => i % 4 === 0 && !red && !bytes[i + 1] && bytes[i + 2] === 255);
}

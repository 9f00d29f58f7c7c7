// What the pages share: asking the server, leaving for a page that is asked for by a form, keeping
// values and charts fresh, and showing what the address names.
const byId = id => document.getElementById(id);
const patience = 10000;  // milliseconds

function warn(text) {
  byId('warning').textContent = text;
  byId('warning').hidden = !text;
}

// The page as a document of its own, which loads nothing. Another login takes the session away:
// the server then answers every request with the login page.
async function ask(path, fields) {
  const reply = await fetch(path, {
    method: fields ? 'POST' : 'GET', body: fields && new URLSearchParams(fields),
    cache: 'no-store', signal: AbortSignal.timeout(patience)});
  const page = new DOMParser().parseFromString(await reply.text(), 'text/html');
  if (!page.querySelector('[data-login-key]')) return page;
  sessionStorage.hint = 'ended';
  location.href = '/login.htm';
  return new Promise(() => {});
}

// Leaves for a page that the server makes from the one field T1.
function go(path, value) {
  const form = document.createElement('form');
  const field = document.createElement('input');
  Object.assign(form, {method: 'post', action: path});
  Object.assign(field, {type: 'hidden', name: 'T1', value});
  form.append(field);
  document.body.append(form);
  form.submit();
}

// Leaves for an address that differs from the present one perhaps by nothing.
function goTo(address) {
  const isHere = new URL(address, location).href === location.href;
  location.href = address;
  if (isHere) location.reload();
}

// Shows what stands behind the '#' of the address: the server never sees it, while reloading, going
// back and a second tab keep it. Pages are made for one browser after the other, so each is asked
// for anew.
function followAddress(show) {
  const turn = () => show().then(() => warn('')).catch(() => warn("{{unreachable}}"));
  addEventListener('hashchange', turn);
  addEventListener('pageshow', event => event.persisted && turn());
  turn();
}

// A name with a query would be another file to the server, so a picture that changes is fetched
// past the cache and shown from memory.
async function showFresh(picture) {
  const reply = await fetch(picture.dataset.fresh, {cache: 'no-store'});
  await showPicture(picture, await reply.blob());
}

async function showPicture(picture, bytes) {
  const old = picture.src;
  picture.src = URL.createObjectURL(bytes);
  await picture.decode().catch(() => {});
  if (old) URL.revokeObjectURL(old);
}

const showAllFresh = () =>
  Promise.all([...document.querySelectorAll('img[data-fresh]')].map(showFresh));

// Texts of the server in the form of the pages: two digits of the hour, dates with strokes, degrees.
function tidy(page) {
  for (const place of page.querySelectorAll('.raw')) {
    const unit = place.dataset.degrees?.slice(-1) ?? '';
    place.textContent = place.textContent.replace(/\b(\d):(\d\d):/g, '0$1:$2:')
      .replace(/(\d{4})-(\d\d)-(\d\d)/g, '$1/$2/$3').replace(/ [CF]$/, ' °').replace('°', `°${unit}`);
  }
}

// Takes over what differs in the marked elements. A sensor that came or went changes the page's
// form, so that it is loaded anew.
function takeOver(page) {
  tidy(page);
  const fresh = page.querySelectorAll('.live');
  const shown = document.querySelectorAll('.live');
  if (fresh.length !== shown.length) return location.reload();
  shown.forEach((element, index) => {
    if (element.outerHTML !== fresh[index].outerHTML) element.replaceWith(fresh[index]);
  });
}

function showLink() {
  const connected = document.querySelector('[data-connected]').dataset.connected === '1';
  warn(connected ? '' : "{{link_lost}}");
  document.body.classList.toggle('stale', !connected);
  document.body.classList.remove('silent');
}

// No lamp tells the present state while nobody answers.
function showSilence() {
  warn("{{unreachable}}");
  document.body.classList.add('stale', 'silent');
}

// Refreshes the marked elements of a page for as long as somebody looks at it.
async function refresh(path, mayAsk) {
  if (document.hidden || !mayAsk()) return;
  try {
    const page = await ask(path);
    if (!mayAsk()) return;
    takeOver(page);
    showLink();
  } catch {
    showSilence();
  }
}

function keepFresh(path, seconds, mayAsk = () => true) {
  showLink();
  const turn = () => refresh(path, mayAsk).finally(() => setTimeout(turn, seconds * 1000));
  setTimeout(turn, seconds * 1000);
}

// Two digits, as the server's texts have them.
const padded = number => String(number).padStart(2, '0');

// As the server writes dates, and the day of the week.
const longDate = (year, month, day) => `${year}/${padded(month)}/${padded(day)} `
  + new Date(year, month - 1, day).toLocaleDateString("{{lang}}", {weekday: 'long'});

const hasData = page =>
  ![...page.querySelectorAll('td')].some(cell => cell.textContent === 'NO DATA');

function sayNoData() {
  for (const cell of document.querySelectorAll('td')) {
    if (cell.textContent === 'NO DATA') cell.textContent = "{{no_data}}";
  }
}

delete sessionStorage.hint;
addEventListener('DOMContentLoaded', () => {
  const menu = document.querySelector(`nav a[href="/${document.body.dataset.menu}"]`);
  menu?.setAttribute('aria-current', 'page');
  tidy(document);
});

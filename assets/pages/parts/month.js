// A month page: shows the month that the address names, else the present one. The table waits in a
// template, which loads nothing, until its pictures bear the names of their gif twins: browsers
// refuse the server's bare jpg replies.
const presentMonth = '0/0';  // to the server
let year;
let month;

function turn(months) {
  const day = new Date(year, month - 1 + months, 1);
  [year, month] = [day.getFullYear(), day.getMonth() + 1];
  location.hash = `${year}/${month}`;
}

function makeDay(cell) {
  cell.tabIndex = 0;
  cell.setAttribute('role', 'button');
  cell.addEventListener('keydown', event => {
    if (event.key !== 'Enter' && event.key !== ' ') return;
    event.preventDefault();
    cell.click();
  });
  const date = new Date(year, month - 1, parseInt(cell.textContent));
  cell.classList.toggle('today', date.toDateString() === new Date().toDateString());
}

function showTable(table) {
  for (const picture of table.querySelectorAll('img')) {
    picture.src = picture.getAttribute('src').replace(/jpg$/, 'gif');
    picture.title = picture.alt;
  }
  table.querySelectorAll('td[onclick]').forEach(makeDay);
  byId('calendar').replaceChildren(table);
  byId('month').textContent = new Date(year, month - 1, 1)
    .toLocaleDateString("{{lang}}", {year: 'numeric', month: 'long'});
}

async function showMonth(path) {
  const address = location.hash;
  const isMonth = /^#\d{4}\/([1-9]|1[0-2])$/.test(address);
  const page = await ask(path, {T1: isMonth ? address.slice(1) : presentMonth});
  if (address !== location.hash) return;
  [year, month] = ['year', 'month'].map(name => Number(page.body.dataset[name]));
  showTable(page.getElementById('generated').content);
  for (const button of document.querySelectorAll('[data-turn]')) button.disabled = false;
}

// Who loads the page again wants the present month.
function showMonths(path) {
  const [{type}] = performance.getEntriesByType('navigation');
  if (type === 'reload') history.replaceState(null, '', location.pathname);
  for (const button of document.querySelectorAll('[data-turn]')) {
    button.addEventListener('click', () => turn(Number(button.dataset.turn)));
  }
  followAddress(() => showMonth(path));
}

// A month page. The table waits in a template, which loads nothing, until its pictures bear the
// names of their gif twins: browsers refuse the server's bare jpg replies.
const year = Number(document.body.dataset.year);
const month = Number(document.body.dataset.month);

// Turns the month page at `path` by some months.
function turn(path, months) {
  const day = new Date(year, month - 1 + months, 1);
  go(path, `${day.getFullYear()}/${day.getMonth() + 1}`);
}

function makeDay(cell) {
  cell.tabIndex = 0;
  cell.setAttribute('role', 'button');
  cell.addEventListener('keydown', event => {
    if (event.key === 'Enter') cell.click();
  });
  const date = new Date(year, month - 1, parseInt(cell.textContent));
  cell.classList.toggle('today', date.toDateString() === new Date().toDateString());
}

function showMonth(path) {
  const table = byId('generated').content;
  for (const picture of table.querySelectorAll('img')) {
    picture.src = picture.getAttribute('src').replace(/jpg$/, 'gif');
    picture.title = picture.alt;
  }
  table.querySelectorAll('td[onclick]').forEach(makeDay);
  byId('calendar').append(table);
  byId('month').textContent = new Date(year, month - 1, 1)
    .toLocaleDateString("{{lang}}", {year: 'numeric', month: 'long'});
  for (const button of document.querySelectorAll('[data-turn]')) {
    button.addEventListener('click', () => turn(path, Number(button.dataset.turn)));
  }
}

// The hour that a page is to show. Its address names it behind the '#'.
// Year, month, day, hour and what may follow; nothing when the address names no hour.
function askedHour() {
  const numbers = location.hash.slice(1).split('/').map(Number);
  const isWhole = numbers.length >= 4 && numbers.every(Number.isInteger);
  return isWhole && numbers[3] >= 0 && numbers[3] < 24 ? numbers : null;
}

const dayAndHour = ([year, month, day, hour]) => `${year}/${month}/${day} ${hour}`;
const hourText = hour => `${padded(hour)}:00 – ${padded(hour)}:59`;
const askedText = ([year, month, day, hour]) => `${longDate(year, month, day)}, ${hourText(hour)}`;

// The large chart has no form.
function fillHour([year, month, day, hour]) {
  if (!byId('day')) return;
  byId('day').value = [year, month, day].map(padded).join('-');
  byId('hour').value = hour;
}

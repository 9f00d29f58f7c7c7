// Checkboxes that stand for the bits of a number. The choice is kept under the name of their box.
function maskOf(name, everything) {
  const boxes = [...byId(name).querySelectorAll('input[type=checkbox]')];
  const kept = Number(localStorage[name] ?? everything);
  for (const box of boxes) box.checked = kept & box.value;
  return () => {
    const mask = boxes.reduce((sum, box) => sum + (box.checked ? Number(box.value) : 0), 0);
    return localStorage[name] = mask;
  };
}

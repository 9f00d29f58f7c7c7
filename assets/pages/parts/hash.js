// The hash of the tokens: one block of sixteen words, laid out as the server does it. The hash
// scrambles a word's 32 bits; a character counts as its UTF-16 code.
const sines = Array.from({length: 64}, (_, i) => Math.floor(Math.abs(Math.sin(i + 1)) * 2 ** 32));
const shifts = [[7, 12, 17, 22], [5, 9, 14, 20], [4, 11, 16, 23], [6, 10, 15, 21]];
const start = [0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476];
const rounds = [
  (b, c, d, i) => [(b & c) | (~b & d), i],
  (b, c, d, i) => [(d & b) | (~d & c), 5 * i + 1],
  (b, c, d, i) => [b ^ c ^ d, 3 * i + 5],
  (b, c, d, i) => [c ^ (b | ~d), 7 * i],
];

function blockOf(text) {
  const words = new Array(16).fill(0);
  const codes = [...Array(text.length).keys()].map(i => text.charCodeAt(i).toString(16));
  codes.push('80');
  for (let word = 0; word * 4 < codes.length; ++word) {
    const digits = codes.slice(word * 4, word * 4 + 4).reverse().join('');
    words[word] = parseInt(digits.slice(-8), 16);  // wide characters run over: the low bits stay
  }
  words[14] = text.length * 8;
  return words;
}

const rotated = (word, count) => (word << count) | (word >>> (32 - count));

const littleEndian = word =>
  [0, 8, 16, 24].map(bits => ((word >>> bits) & 255).toString(16).padStart(2, '0')).join('');

function hash(text) {
  const words = blockOf(text);
  let [a, b, c, d] = start;
  for (let i = 0; i < 64; ++i) {
    const round = i >> 4;
    const [mixed, word] = rounds[round](b, c, d, i);
    const sum = (a + mixed + sines[i] + words[word % 16]) | 0;
    [a, d, c, b] = [d, c, b, (b + rotated(sum, shifts[round][i % 4])) | 0];
  }
  return [a, b, c, d].map((word, i) => littleEndian((word + start[i]) | 0)).join('');
}

const token = (password, key) => hash(hash(password) + key);

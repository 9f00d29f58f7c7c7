#include "web/session/hash.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/errors/runtime_error.h"

namespace varek {

namespace {

constexpr size_t kWords = 16;
constexpr size_t kLengthWord = 14;
constexpr int kCharactersPerWord = 4;
constexpr uint64_t kTerminator = 0x80;
constexpr size_t kSteps = 64;

using Block = std::array<uint32_t, kWords>;
using State = std::array<uint32_t, 4>;

constexpr State kInitialState{0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476};

/// Left rotations: four for each of the four rounds, in turn.
constexpr int kShifts[4][4] = {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};

std::array<uint32_t, kSteps> SineTable() {
  std::array<uint32_t, kSteps> table{};
  for (size_t step = 0; step < kSteps; ++step) {
    const double sine = std::fabs(std::sin(static_cast<double>(step + 1)));
    table[step] = static_cast<uint32_t>(std::floor(sine * 4294967296.0));
  }
  return table;
}

/// How many bytes follow a leading byte of UTF-8; what can't lead stands for itself.
int FollowersOf(uint8_t lead) {
  if (lead >= 0xF0 && lead < 0xF8) return 3;
  if (lead >= 0xE0 && lead < 0xF0) return 2;
  return lead >= 0xC0 && lead < 0xE0 ? 1 : 0;
}

/// Reads one code point of `text` at `position` and moves on. A byte that begins no whole
/// character counts as one.
uint32_t NextCodePoint(std::string_view text, size_t& position) {
  const auto lead = static_cast<uint8_t>(text[position]);
  const auto followers = static_cast<size_t>(FollowersOf(lead));
  uint32_t code = followers == 0 ? lead : lead & (0x3FU >> followers);
  for (size_t i = 1; i <= followers; ++i) {
    const auto byte = position + i < text.size() ? static_cast<uint8_t>(text[position + i]) : 0;
    if ((byte & 0xC0) != 0x80) {
      ++position;
      return lead;
    }
    code = code << 6 | (byte & 0x3FU);
  }
  position += followers + 1;
  return code;
}

std::u16string CodeUnits(std::string_view text) {
  std::u16string units;
  for (size_t position = 0; position < text.size();) {
    const uint32_t code = NextCodePoint(text, position);
    if (code < 0x10000) {
      units += static_cast<char16_t>(code);
    } else {
      units += static_cast<char16_t>(0xD7C0 + (code >> 10));
      units += static_cast<char16_t>(0xDC00 + (code & 0x3FF));
    }
  }
  return units;
}

/// Digits that are put in front of each other: four characters make a word, of which the low 32
/// bits are kept.
class WordDigits final {
 public:
  void PutInFront(uint64_t code) {
    value_ |= code << bits_;
    do {
      bits_ += 4;
      code >>= 4;
    } while (code != 0);
    ++count_;
  }
  bool IsFull() const { return count_ == kCharactersPerWord; }
  uint32_t Word() const { return static_cast<uint32_t>(value_); }

 private:
  uint64_t value_ = 0;
  int bits_ = 0;
  int count_ = 0;
};

void Store(Block& block, size_t word, const WordDigits& digits) {
  if (word >= kWords) {
    throw platform::RuntimeError(platform::errors::kSubscript, "text too long to be hashed");
  }
  block[word] = digits.Word();
}

Block LayOut(const std::u16string& text) {
  Block block{};
  size_t word = 0;
  WordDigits digits;
  for (const char16_t character : text) {
    digits.PutInFront(character);
    if (!digits.IsFull()) continue;
    Store(block, word++, digits);
    digits = WordDigits();
  }
  digits.PutInFront(kTerminator);
  Store(block, word, digits);
  block[kLengthWord] = static_cast<uint32_t>(text.size() * 8);
  return block;
}

/// The round's function of the three words, and the word of the block that its step takes.
struct Mixed {
  uint32_t value;
  size_t word;
};

Mixed Mix(size_t step, uint32_t b, uint32_t c, uint32_t d) {
  switch (step / kWords) {
    case 0:
      return {(b & c) | (~b & d), step};
    case 1:
      return {(d & b) | (~d & c), (5 * step + 1) % kWords};
    case 2:
      return {b ^ c ^ d, (3 * step + 5) % kWords};
    default:
      return {c ^ (b | ~d), 7 * step % kWords};
  }
}

State Digest(const Block& block) {
  static const std::array<uint32_t, kSteps> sines = SineTable();
  auto [a, b, c, d] = kInitialState;
  for (size_t step = 0; step < kSteps; ++step) {
    const Mixed mixed = Mix(step, b, c, d);
    const uint32_t sum = a + mixed.value + sines[step] + block[mixed.word];
    a = d;
    d = c;
    c = b;
    b += std::rotl(sum, kShifts[step / kWords][step % 4]);
  }
  return {kInitialState[0] + a, kInitialState[1] + b, kInitialState[2] + c, kInitialState[3] + d};
}

}  // namespace

std::string Hash(const std::string& text) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string result;
  for (uint32_t word : Digest(LayOut(CodeUnits(text)))) {
    for (int byte = 0; byte < 4; ++byte, word >>= 8) {
      result += kDigits[word >> 4 & 0xF];
      result += kDigits[word & 0xF];
    }
  }
  return result;
}

}  // namespace varek

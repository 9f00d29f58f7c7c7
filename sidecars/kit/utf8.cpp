#include "kit/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace sidecar {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// A sequence by its first byte (RFC 3629, section 3).
struct Form {
  uint8_t mask;
  uint8_t mark;
  size_t tail;        ///< bytes behind the first
  char32_t smallest;  ///< below it a shorter form is the right one
};

constexpr std::array<Form, 4> kForms{
    {{0x80, 0x00, 0, 0}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}}};

bool IsCharacter(char32_t point) { return point <= 0x10FFFF && (point < 0xD800 || point > 0xDFFF); }

/// The character of this form at the start of `bytes`, if they hold one.
std::optional<char32_t> Decode(const Form& form, std::string_view bytes) {
  if (bytes.size() <= form.tail) return {};
  char32_t point = static_cast<uint8_t>(bytes[0]) & static_cast<uint8_t>(~form.mask);
  for (const char byte : bytes.substr(1, form.tail)) {
    if ((byte & 0xC0) != 0x80) return {};
    point = point << 6 | (byte & 0x3F);
  }
  if (point < form.smallest || !IsCharacter(point)) return {};
  return point;
}

char32_t TakeCharacter(std::string_view& bytes) {
  for (const Form& form : kForms) {
    if ((static_cast<uint8_t>(bytes[0]) & form.mask) != form.mark) continue;
    const std::optional<char32_t> point = Decode(form, bytes);
    bytes.remove_prefix(point ? form.tail + 1 : 1);
    return point.value_or(kReplacement);
  }
  bytes.remove_prefix(1);
  return kReplacement;
}

void Append(char32_t point, std::string& bytes) {
  size_t tail = 0;
  while (tail < 3 && point >= kForms[tail + 1].smallest) ++tail;
  bytes += static_cast<char>(kForms[tail].mark | point >> (6 * tail));
  while (tail-- > 0) bytes += static_cast<char>(0x80 | (point >> (6 * tail) & 0x3F));
}

/// Also the two separators that some readers take for line ends.
bool IsControl(char32_t point) {
  return point < 0x20 || (point >= 0x7F && point < 0xA0) || point == 0x2028 || point == 0x2029;
}

}  // namespace

std::u32string CodePoints(std::string_view bytes) {
  std::u32string points;
  while (!bytes.empty()) points += TakeCharacter(bytes);
  return points;
}

std::string Utf8(std::u32string_view points) {
  std::string bytes;
  for (const char32_t point : points) Append(point, bytes);
  return bytes;
}

std::string OneLine(std::string_view text) {
  std::u32string points = CodePoints(text);
  std::ranges::replace_if(points, IsControl, U' ');
  return Utf8(points);
}

std::string Shortened(std::string_view text, size_t count) {
  const std::u32string points = CodePoints(text);
  if (points.size() <= count) return Utf8(points);
  return Utf8(points.substr(0, count)) + "...";
}

}  // namespace sidecar

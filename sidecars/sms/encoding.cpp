#include "sms/encoding.h"

#include <algorithm>
#include <cstdint>

#include "kit/utf8.h"

namespace sidecar {

namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";
constexpr std::string_view kUnreserved =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";

std::string Hex(uint32_t number, int digits) {
  std::string text;
  while (digits-- > 0) text += kHexDigits[number >> (4 * digits) & 0xF];
  return text;
}

}  // namespace

bool IsLatin1(std::string_view text) {
  return std::ranges::all_of(CodePoints(text), [](char32_t point) { return point <= 0xFF; });
}

std::string Latin1(std::string_view text) {
  std::string bytes;
  for (const char32_t point : CodePoints(text)) bytes += static_cast<char>(point);
  return bytes;
}

std::string Utf16Hex(std::string_view text) {
  std::string digits;
  for (const char32_t point : CodePoints(text)) {
    const char32_t above = point - 0x10000;
    digits += point < 0x10000 ? Hex(point, 4)
                              : Hex(0xD800 + (above >> 10), 4) + Hex(0xDC00 + (above & 0x3FF), 4);
  }
  return digits;
}

std::string PercentEncoded(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    const bool asItIs = kUnreserved.find(byte) != std::string_view::npos;
    text += asItIs ? std::string(1, byte) : "%" + Hex(static_cast<uint8_t>(byte), 2);
  }
  return text;
}

}  // namespace sidecar

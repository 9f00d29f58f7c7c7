#include "platform/text/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "platform/errors/runtime_error.h"

namespace platform {

namespace {

constexpr int kSingleDigits = 7;

/// The number that `text` begins with in plain notation; 0 when there is none.
double ExactNumber(std::string_view text) {
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

std::string Trim(std::string_view text) {
  const size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return TrimRight(text.substr(first));
}

std::string TrimRight(std::string_view text) {
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string ShownText(std::string_view text) {
  constexpr std::string_view kEnds("\r\0", 2);
  return std::string(text.substr(0, text.find_first_of(kEnds)));
}

std::string OneLine(std::string text) {
  for (char& character : text) {
    if (character == '\r' || character == '\n' || character == '\0') character = ' ';
  }
  return text;
}

std::string_view Middle(std::string_view text, size_t first, size_t count) {
  if (first > text.size()) return {};
  return text.substr(first - 1, count);
}

std::string_view LastCharacters(std::string_view text, size_t count) {
  return text.substr(text.size() - std::min(text.size(), count));
}

double LenientNumber(std::string_view text) {
  std::string digits;
  bool pointSeen = false;
  for (char c : text.substr(std::min(text.find_first_not_of(' '), text.size()))) {
    const bool firstPoint = c == '.' && !pointSeen;
    if (!firstPoint && (c < '0' || c > '9')) break;
    pointSeen = pointSeen || firstPoint;
    digits += c;
  }
  return ExactNumber(digits);
}

double RoundHalfEven(double value) {
  // The default rounding mode of IEEE arithmetic, which the program never changes.
  return std::nearbyint(value);
}

int16_t RoundToInt16(double value) {
  const double rounded = RoundHalfEven(value);
  using Limits = std::numeric_limits<int16_t>;
  if (!(rounded >= Limits::min() && rounded <= Limits::max())) {
    throw RuntimeError(errors::kOverflow, "number does not fit in 16 bits");
  }
  return static_cast<int16_t>(rounded);
}

std::string SingleText(float value) {
  char text[32];
  const auto end =
      std::to_chars(text, text + sizeof text, value, std::chars_format::general, kSingleDigits);
  std::replace(text, end.ptr, 'e', 'E');
  return std::string(text, end.ptr);
}

double SingleAsShown(float value) { return ExactNumber(SingleText(value)); }

std::string ZeroPadded(int64_t value, int digits) {
  const int width = value < 0 ? digits + 1 : digits;
  char text[32];
  std::snprintf(text, sizeof text, "%0*lld", width, static_cast<long long>(value));
  return text;
}

bool SameIgnoringCase(std::string_view a, std::string_view b) {
  auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return std::ranges::equal(a, b, {}, lower, lower);
}

}  // namespace platform

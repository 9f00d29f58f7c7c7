#include "alert/alert_text.h"

#include <algorithm>

#include "kit/utf8.h"
#include "platform/errors/runtime_error.h"
#include "platform/text/text.h"

namespace sidecar {

namespace {

constexpr char kPrefix[] = "UPS";
constexpr size_t kPrefixLength = sizeof kPrefix - 1;
constexpr size_t kLongestLine = 2000;

[[noreturn]] void Refuse(const std::string& fault) {
  throw platform::RuntimeError(platform::errors::kInvalidCall, fault);
}

/// Marks that turn the direction of what follows would let a text show as another.
bool TurnsDirection(char32_t point) {
  return point == 0x061C || point == 0x200E || point == 0x200F ||
         (point >= 0x202A && point <= 0x202E) || (point >= 0x2066 && point <= 0x2069);
}

}  // namespace

std::string EventText(const std::vector<std::string>& arguments) {
  if (arguments.size() != 1) Refuse("one argument is needed: UPS and the text directly behind it");
  if (!arguments[0].starts_with(kPrefix)) Refuse("the argument does not begin with UPS");
  std::string text = PlainLine(arguments[0].substr(kPrefixLength));
  if (text.empty()) Refuse("there is no text behind UPS");
  return text;
}

std::string PlainLine(const std::string& text) {
  std::u32string points = CodePoints(OneLine(text));
  std::ranges::replace_if(points, TurnsDirection, U' ');
  return Shortened(platform::Trim(Utf8(points)), kLongestLine);
}

}  // namespace sidecar

#include "simulator/numbers.h"

#include <charconv>

namespace simulator {

std::optional<double> ParseNumber(std::string_view text, double lowest, double highest) {
  double number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, std::chars_format::fixed);
  const bool inRange = number >= lowest && number <= highest;  // also keeps NaN out
  if (error != std::errc{} || stop != end || !inRange) return std::nullopt;
  return number + 0.0;  // "-0" becomes plain 0
}

}  // namespace simulator

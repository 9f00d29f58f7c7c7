// Numbers that people type.
#pragma once

#include <optional>
#include <string_view>

namespace simulator {

/// The decimal number that `text` is as a whole, when it lies in `lowest` to `highest`.
std::optional<double> ParseNumber(std::string_view text, double lowest, double highest);

}  // namespace simulator

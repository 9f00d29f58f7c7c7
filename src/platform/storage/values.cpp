#include "platform/storage/values.h"

#include "platform/text/text.h"

namespace platform {

std::string ValueText(const Value& value) {
  if (const auto* whole = std::get_if<int64_t>(&value)) return std::to_string(*whole);
  if (const auto* number = std::get_if<double>(&value)) {
    return SingleText(static_cast<float>(*number));
  }
  const auto* text = std::get_if<std::string>(&value);
  return text ? *text : std::string();
}

double ValueNumber(const Value& value) {
  if (const auto* whole = std::get_if<int64_t>(&value)) return static_cast<double>(*whole);
  if (const auto* number = std::get_if<double>(&value)) return *number;
  const auto* text = std::get_if<std::string>(&value);
  return text ? LenientNumber(*text) : 0;
}

}  // namespace platform

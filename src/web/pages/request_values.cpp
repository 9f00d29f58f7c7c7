#include "web/pages/request_values.h"

#include "platform/text/text.h"

namespace varek {

namespace {

constexpr char kSlash[] = "%2F";

/// Cuts the text up to `separator` from `rest`, and the separator with it.
std::optional<std::string> TakeUpTo(const std::string& separator, std::string& rest) {
  const size_t end = rest.find(separator);
  if (end == std::string::npos) return {};
  std::string taken = rest.substr(0, end);
  rest.erase(0, end + separator.size());
  return taken;
}

}  // namespace

int WholeNumber(const std::string& text) {
  return platform::RoundToInt16(platform::LenientNumber(text));
}

std::optional<MonthValue> ReadMonthValue(const std::string& value) {
  std::string rest = value;
  const auto year = TakeUpTo(kSlash, rest);
  if (!year) return {};
  return MonthValue{WholeNumber(*year), WholeNumber(rest)};
}

std::optional<DayValue> ReadDayValue(const std::string& value) {
  std::string rest = value;
  const auto year = TakeUpTo(kSlash, rest);
  const auto month = TakeUpTo(kSlash, rest);
  if (!year || !month) return {};
  return DayValue{WholeNumber(*year), WholeNumber(*month), WholeNumber(rest), BehindPlus(rest)};
}

std::optional<HourValue> ReadHourValue(const std::string& value) {
  const auto day = ReadDayValue(value);
  if (!day || !day->more) return {};
  const int hour = WholeNumber(day->more->substr(0, 2));
  return HourValue{day->year, day->month, day->day, hour, *day->more};
}

std::optional<std::string> BehindPlus(const std::string& text) {
  std::string rest = text;
  if (!TakeUpTo("+", rest)) return {};
  return rest;
}

std::optional<EditFields> ReadEditFields(const std::string& value) {
  EditFields fields;
  std::string rest = value;
  for (size_t i = 0; i < kEditFields; ++i) {
    const auto field = TakeUpTo(i + 1 < kEditFields ? "+" : "&", rest);
    if (!field) return {};
    fields[i] = *field;
  }
  return fields;
}

}  // namespace varek

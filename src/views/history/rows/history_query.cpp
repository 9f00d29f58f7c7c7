#include "views/history/rows/history_query.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

#include "platform/text/text.h"

namespace varek {

namespace {

constexpr char kDayBegin[] = "00:00:00";
constexpr char kDayEnd[] = "23:59:59";

constexpr int kEnter = 13;
constexpr int kBackspace = 8;
constexpr int kTab = 9;
constexpr int kEscape = 27;

/// Of the format "000.0".
constexpr size_t kFormatLength = 5;
constexpr size_t kKeptCharacters = 3;

bool IsDigit(int character) { return character >= '0' && character <= '9'; }

bool IsSeparator(int character) { return character == '.' || character == ','; }

bool IsNumber(const std::string& text) {
  return std::ranges::any_of(text, IsDigit) && std::ranges::count_if(text, IsSeparator) <= 1 &&
         std::ranges::all_of(text, [](char c) { return IsDigit(c) || IsSeparator(c); });
}

/// A half rounds up. The system's own text helpers know no fixed number of decimals.
std::string ThreeDigitsOneDecimal(double number) {
  char text[400];  // The largest double has 309 digits.
  const auto end = std::to_chars(std::begin(text), std::end(text), std::round(number * 10) / 10,
                                 std::chars_format::fixed, 1);
  const std::string digits(text, end.ptr);
  return std::string(kFormatLength - std::min(digits.size(), kFormatLength), '0') + digits;
}

std::string Formatted(std::string limit) {
  if (!IsNumber(limit)) return limit;
  std::ranges::replace(limit, ',', '.');
  return ThreeDigitsOneDecimal(platform::LenientNumber(limit));
}

bool IsSet(const std::string& limit) { return limit != kDontCare; }

std::vector<std::string> WholeHours() {
  std::vector<std::string> times{kDontCare};
  for (int hour = 0; hour < 24; ++hour) times.push_back(platform::ZeroPadded(hour, 2) + ":00:00");
  return times;
}

std::string TimeClause(const std::string& column, const HistoryLimits& limits) {
  const std::string from = IsSet(limits.from) ? limits.from : kDayBegin;
  std::string clause = "[" + column + "] > #" + from + "#";
  if (IsSet(limits.to)) clause += " And [" + column + "] < #" + limits.to + "#";
  return clause;
}

}  // namespace

std::vector<std::string> FromTimes() { return WholeHours(); }

std::vector<std::string> ToTimes() {
  std::vector<std::string> times = WholeHours();
  times.push_back(kDayEnd);
  return times;
}

bool IsLimitKey(int character) {
  return IsDigit(character) || IsSeparator(character) || character == kEnter ||
         character == kBackspace || character == kTab || character == kEscape;
}

std::string LimitInQuery(const std::string& limit) {
  const std::string formatted = Formatted(limit);
  return formatted.substr(0, kKeptCharacters) + "." +
         formatted.substr(formatted.size() - std::min<size_t>(formatted.size(), 1));
}

std::string Addstr(const std::string& field, const FieldLimits& limits) {
  std::string clause;
  if (IsSet(limits.lower)) clause = "[" + field + "] > " + LimitInQuery(limits.lower);
  if (IsSet(limits.lower) && IsSet(limits.upper)) clause += " And ";
  if (IsSet(limits.upper)) clause += "[" + field + "] < " + LimitInQuery(limits.upper);
  return clause.empty() ? clause : " " + limits.word + " " + clause;
}

std::string HistoryQuery(const std::string& dayTable, const std::vector<std::string>& columns,
                         const HistoryLimits& limits) {
  std::string query =
      "Select * From [" + dayTable + "] Where " + TimeClause(columns.at(kTimeColumn), limits);
  for (size_t i = 0; i < kMeasureCount; ++i) query += Addstr(columns.at(i + 1), limits.fields[i]);
  return query;
}

std::string PositionText(const std::string& dayTable, int64_t position, int64_t count) {
  return "[" + dayTable + "] " + std::to_string(position + 1) + "/" + std::to_string(count);
}

}  // namespace varek

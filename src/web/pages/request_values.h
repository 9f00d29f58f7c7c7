// What the forms of the console's pages send behind "T1=" and "T2=": numbers between the separators
// "%2F" (a "/" as browsers encode it) and "+" (a blank). The values run on into whatever fields the
// form has behind them, so numbers are read up to their first other character.
#pragma once

#include <array>
#include <optional>
#include <string>

namespace varek {

/// The whole number at the start of `text`, 0 when there is none. Throws RuntimeError 6 beyond 16
/// bits.
int WholeNumber(const std::string& text);

struct MonthValue {
  int year = 0;
  int month = 0;
};

/// Reads year "%2F" month; nothing when the separator is missing.
std::optional<MonthValue> ReadMonthValue(const std::string& value);

struct DayValue {
  int year = 0;
  int month = 0;
  int day = 0;
  std::optional<std::string> more;  ///< behind the first "+"
};

/// Reads year "%2F" month "%2F" day, and what a "+" may add; nothing when a "%2F" is missing.
std::optional<DayValue> ReadDayValue(const std::string& value);

struct HourValue {
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  std::string more;  ///< from the hour on
};

/// Reads year "%2F" month "%2F" day "+" hour, of which the hour has two characters at most; nothing
/// when a separator is missing.
std::optional<HourValue> ReadHourValue(const std::string& value);

/// What stands behind the first "+" of `text`; nothing when there is none.
std::optional<std::string> BehindPlus(const std::string& text);

constexpr size_t kEditFields = 10;
using EditFields = std::array<std::string, kEditFields>;

/// The ten fields of an edit, separated by "+", the last one closed by "&"; nothing when one of
/// these is missing.
std::optional<EditFields> ReadEditFields(const std::string& value);

}  // namespace varek

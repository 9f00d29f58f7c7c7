// What a person asks of a day's samples: limits of time and of value, by which keys they are typed,
// and the query that they make. Limits are texts as they stand in their fields; whether one is a
// number is for the database to say.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "records/files/sample_columns.h"

namespace varek {

/// A limit that is not set. Shown in every language as it stands here.
inline constexpr char kDontCare[] = "Dont Care";

/// The words that join a field's clause to what stands before it.
inline constexpr std::array<const char*, 2> kJoiningWords{"And", "Or"};

struct FieldLimits {
  std::string lower = kDontCare;
  std::string upper = kDontCare;
  std::string word = kJoiningWords[0];
};

struct HistoryLimits {
  std::string from = kDontCare;  ///< "hh:mm:ss", as `to`
  std::string to = kDontCare;
  std::array<FieldLimits, kMeasureCount> fields;  ///< in the order of the columns
};

/// The choices for the beginning and for the end of the time.
std::vector<std::string> FromTimes();
std::vector<std::string> ToTimes();

/// True for a character that a limit's field takes: digits, both decimal separators, and the keys
/// enter, backspace, tab and escape.
bool IsLimitKey(int character);

/// The limit as it stands in a query: the first three characters and the last one of its format
/// "000.0", with a point between them in every locale. "1234.5" becomes "123.5". A text that is no
/// number is formatted as itself.
std::string LimitInQuery(const std::string& limit);

/// The clause of one field, with its joining word in front; empty when neither limit is set.
std::string Addstr(const std::string& field, const FieldLimits& limits);

/// The whole query. REQUIRES `columns` to be the names of the table's columns, the time first.
std::string HistoryQuery(const std::string& dayTable, const std::vector<std::string>& columns,
                         const HistoryLimits& limits);

/// Where the grid stands in its result; `position` counts from 0 and is -1 for none.
std::string PositionText(const std::string& dayTable, int64_t position, int64_t count);

}  // namespace varek

// Translates the system's own query dialect into the engine's. Date literals stand between number
// signs, names in square brackets, and an In list may end with a comma.
#pragma once

#include <optional>
#include <string>

namespace platform {

/// A query over one table: "Select * From [table] Where condition".
struct TranslatedQuery {
  std::string table;
  std::string condition;  ///< in the engine's dialect; empty when there is none
};

/// Translates a whole query, in any spacing and letter case. Throws RuntimeError 3075 for a text
/// that is no such query, for a date that does not exist, and for a text that goes on behind it.
TranslatedQuery TranslateQuery(const std::string& query);

/// Translates a condition alone, as FindFirst takes it. The same errors.
std::string TranslateCondition(const std::string& condition);

/// Gives a date, a time or both, in any padding ("2026/1/5", "7:05", "2026/01/05 7:5:00"), the
/// sortable form in which databases keep them: "2026-01-05", "07:05:00", "2026-01-05 07:05:00".
/// A year has four digits. Nothing when the text is none of these or no such moment exists.
std::optional<std::string> SortableDate(const std::string& text);

/// A table or column name as the engine wants it, whatever characters it holds.
std::string QuoteName(const std::string& name);

}  // namespace platform

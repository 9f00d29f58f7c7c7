// The data history's texts by their numbers in the language table.
#pragma once

#include <QString>
#include <array>
#include <string>

#include "settings/language.h"

namespace varek::history_text {

constexpr size_t kCaption = 40;
constexpr size_t kQueryPanel = 41;
constexpr size_t kFrom = 42;
constexpr size_t kTo = 43;
constexpr size_t kLowerLimit = 44;
constexpr size_t kUpperLimit = 45;
constexpr size_t kJoinedBy = 46;
constexpr size_t kQuery = 47;
constexpr size_t kClear = 48;
constexpr size_t kExport = 49;
constexpr size_t kCalendar = 50;
constexpr size_t kExporting = 52;
constexpr size_t kExportFinished = 53;
constexpr size_t kNothingFound = 54;
constexpr size_t kRecord = 55;
constexpr size_t kSaveAs = 56;
constexpr size_t kChooseDay = 57;
constexpr size_t kBadLimit = 58;
constexpr size_t kCannotWrite = 59;
constexpr size_t kNoData = 121;
constexpr size_t kValueLimits = 293;

/// Columns of a sample: the time, then the six values.
constexpr std::array<size_t, 7> kColumns{51, 38, 39, 35, 36, 34, 37};

}  // namespace varek::history_text

namespace varek {

inline QString HistoryText(size_t number) { return QString::fromStdString(LangText[number]); }

/// The head of column 0 to 6. Temperatures are stored in Celsius, whatever unit is shown elsewhere.
inline std::string ColumnCaption(int column) {
  const auto i = static_cast<size_t>(column);
  if (i >= history_text::kColumns.size()) return {};
  return LangText[history_text::kColumns[i]] +
         (i + 1 == history_text::kColumns.size() ? "(C)" : "");
}

}  // namespace varek

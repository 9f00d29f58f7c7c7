// The heads of the columns of a sample, in the grid and in the query panel.
#pragma once

#include <string>

#include "records/files/sample_columns.h"
#include "texts/language.h"

namespace varek {

/// The head of column 0 to 6. Temperatures are stored in Celsius, whatever unit is shown elsewhere.
inline std::string ColumnCaption(int column) {
  if (column == kTimeColumn) return LangText[texts::kHistoryTime];
  const auto measure = static_cast<size_t>(column - kInputColumn);
  if (measure >= kMeasureCount) return {};
  return LangText[kMeasureTexts[measure]] + (column == kTemperatureColumn ? "(C)" : "");
}

}  // namespace varek

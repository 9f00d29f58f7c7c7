// How the data history's texts are shown.
#pragma once

#include <QString>
#include <array>
#include <string>

#include "texts/language.h"

namespace varek {

/// The heads of a sample's columns: the time, then the six values.
constexpr std::array<size_t, 7> kColumnTexts{
    texts::kHistoryTime, texts::kInputVoltage, texts::kOutputVoltage, texts::kLoad,
    texts::kFrequency,   texts::kBattery,      texts::kTemperature};

inline QString HistoryText(size_t number) { return QString::fromStdString(LangText[number]); }

/// The head of column 0 to 6. Temperatures are stored in Celsius, whatever unit is shown elsewhere.
inline std::string ColumnCaption(int column) {
  const auto i = static_cast<size_t>(column);
  if (i >= kColumnTexts.size()) return {};
  return LangText[kColumnTexts[i]] + (i + 1 == kColumnTexts.size() ? "(C)" : "");
}

}  // namespace varek

// The columns of a day's table of samples: their order and names, which of them the unit measures,
// and how their values are shown. Whoever makes, writes or reads such a table takes them from here.
#pragma once

#include <array>
#include <string>

#include "platform/storage/database.h"
#include "texts/text_numbers.h"

namespace varek {

/// By position. Readers address the columns by it: do not change.
enum SampleColumn {
  kTimeColumn,
  kInputColumn,
  kOutputColumn,
  kLoadColumn,
  kFrequencyColumn,
  kBatteryColumn,
  kTemperatureColumn
};
inline constexpr size_t kSampleColumnCount = kTemperatureColumn + 1;
/// The columns behind the time.
inline constexpr size_t kMeasureCount = kSampleColumnCount - 1;

struct SampleField {
  const char* name;
  platform::FieldType type;
};

/// Stored in the data files of every installation: do not change, misspelling included.
inline constexpr std::array<SampleField, kSampleColumnCount> kSampleFields{
    {{"date", platform::FieldType::Date},
     {"Input voltage", platform::FieldType::Single},
     {"Output voltage", platform::FieldType::Single},
     {"Load", platform::FieldType::Byte},
     {"Frequency", platform::FieldType::Single},
     {"Battery capacious", platform::FieldType::Byte},
     {"Temperature", platform::FieldType::Single}}};

/// The texts that name the measures, in the order of their columns.
inline constexpr std::array<size_t, kMeasureCount> kMeasureTexts{
    texts::kInputVoltage, texts::kOutputVoltage, texts::kLoad,
    texts::kFrequency,    texts::kBattery,       texts::kTemperature};

/// False for the column of what the unit does not measure; true for any other number.
bool IsMeasured(int column);

/// A stored value as it is shown: temperatures in the display unit.
float ShownValue(int column, double stored);

/// Name of the time's column as it stands in `table`, which may come from elsewhere. Reads no row.
/// Throws RuntimeError 3078 when there is no such table.
std::string TimeColumnName(platform::Database& data, const std::string& table);

}  // namespace varek

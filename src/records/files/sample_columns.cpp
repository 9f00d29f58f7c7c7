#include "records/files/sample_columns.h"

#include "core/data_center.h"
#include "core/temperature.h"

namespace varek {

bool IsMeasured(int column) {
  if (column == kLoadColumn) return DataCenter.HasLoad;
  if (column == kTemperatureColumn) return DataCenter.HasTemperature;
  return true;
}

float ShownValue(int column, double stored) {
  const bool converts = column == kTemperatureColumn && !DataCenter.settings.UseCelsius;
  return static_cast<float>(converts ? Fahrenheit(stored) : stored);
}

std::string TimeColumnName(platform::Database& data, const std::string& table) {
  return data.OpenRecordset("Select * From [" + table + "] Where 1 = 0")->FieldName(kTimeColumn);
}

}  // namespace varek

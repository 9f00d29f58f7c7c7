#include "simulator/reply_lines.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace simulator {

namespace {

std::string FixedText(double value, int width, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%0*.*f", width, decimals, value);
  return text;
}

/// `value` in exactly `width` characters, zero-padded.
std::string Number(double value, int width, int decimals) {
  value = std::clamp(value, 0.0, std::pow(10.0, width) - 1);
  std::string text = FixedText(value, width, decimals);
  while (static_cast<int>(text.size()) > width) text = FixedText(value, width, --decimals);
  return text;
}

std::string Text(const std::string& text, int width) {
  std::string column = text.substr(0, width);
  column.resize(width, ' ');
  return column;
}

}  // namespace

std::string StatusLine(const StatusValues& values) {
  return "(" + Number(values.inputVoltage, 5, 1) + " " + Number(values.inputFaultVoltage, 5, 1) +
         " " + Number(values.outputVoltage, 5, 1) + " " + Number(values.load, 3, 0) + " " +
         Number(values.frequency, 4, 1) + " " + Number(values.batteryVoltage, 4, 2) + " " +
         Number(values.temperature, 4, 1) + " " + values.flags + "\r";
}

std::string RatingLine(const UnitDescription& unit) {
  return "#" + Number(unit.ratedVoltage, 5, 1) + " " + Number(unit.ratedCurrent, 3, 0) + " " +
         Number(unit.ratedBatteryVoltage, 5, 2) + " " + Number(unit.ratedFrequency, 4, 1) + "\r";
}

std::string IdentificationLine(const UnitDescription& unit) {
  return "#" + Text(unit.company, kCompanyWidth) + " " + Text(unit.model, kModelWidth) + " " +
         Text(unit.version, kVersionWidth) + "\r";
}

}  // namespace simulator

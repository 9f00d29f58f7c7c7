// The three lines that a unit answers. Their columns are the wire format: do not change.
#pragma once

#include <string>

#include "simulator/unit_description.h"

namespace simulator {

/// What a status line carries; volts, percent, hertz and degrees Celsius.
struct StatusValues {
  double inputVoltage = 0;
  double inputFaultVoltage = 0;
  double outputVoltage = 0;
  double load = 0;
  double frequency = 0;
  double batteryVoltage = 0;
  double temperature = 0;
  std::string flags;  ///< eight characters "0" or "1", bit 7 first
};

/// 47 characters with the final carriage return. A value that does not fit its column loses its
/// decimals first and is then held at the largest number of that width, or at 0.
std::string StatusLine(const StatusValues& values);

/// 22 characters with the final carriage return.
std::string RatingLine(const UnitDescription& unit);

/// 39 characters with the final carriage return, texts padded with blanks or cut.
std::string IdentificationLine(const UnitDescription& unit);

}  // namespace simulator

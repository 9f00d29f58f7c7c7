// The one conversion of temperatures. They are received and stored in Celsius.
#pragma once

namespace varek {

constexpr double Fahrenheit(double celsius) { return celsius * 1.8 + 32; }

}  // namespace varek

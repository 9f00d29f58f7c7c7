#include "platform/calendar.h"

namespace platform {

bool IsLeapYear(int year) { return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0); }

int DaysInMonth(int year, int month) {
  static constexpr int kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kLengths[month - 1];
}

}  // namespace platform

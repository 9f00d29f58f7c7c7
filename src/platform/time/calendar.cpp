#include "platform/time/calendar.h"

namespace platform {

bool IsLeapYear(int year) { return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0); }

int DaysInMonth(int year, int month) {
  static constexpr int kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kLengths[month - 1];
}

MonthStart Getfirstday(int year, int month) {
  // The 1st of January of the year 1 is a Monday.
  const int before = year - 1;
  int days = 1 + before * 365 + before / 4 - before / 100 + before / 400;
  for (int earlier = 1; earlier < month; ++earlier) days += DaysInMonth(year, earlier);
  return {days % 7, DaysInMonth(year, month)};
}

}  // namespace platform

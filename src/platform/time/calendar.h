// Calendar arithmetic, by year, month and day alone.
#pragma once

namespace platform {

/// Divisible by 400, or by 4 and not by 100.
bool IsLeapYear(int year);

/// 28 to 31; REQUIRES a month from 1 to 12.
int DaysInMonth(int year, int month);

struct MonthStart {
  int weekday;  ///< of the 1st, 0 (Sunday) to 6 (Saturday)
  int days;     ///< of the month
};

/// How a month begins and how long it is; REQUIRES a year from 1 and a month from 1 to 12.
MonthStart Getfirstday(int year, int month);

}  // namespace platform

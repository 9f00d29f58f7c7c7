// Calendar arithmetic, by year, month and day alone.
#pragma once

namespace platform {

/// Divisible by 400, or by 4 and not by 100.
bool IsLeapYear(int year);

/// 28 to 31; REQUIRES a month from 1 to 12.
int DaysInMonth(int year, int month);

}  // namespace platform

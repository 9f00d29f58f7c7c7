// The page of a month calendar as plain arithmetic: seven cells of week-day heads, then six weeks
// of days, Sunday first.
#pragma once

#include "platform/picture/surface.h"

namespace varek {

constexpr int kCalendarColumns = 7;
constexpr int kCalendarRows = 7;
constexpr int kCalendarCells = kCalendarColumns * kCalendarRows;

constexpr platform::Color kSelectedDayColor{0, 0, 255};

/// The cell (7 to 48) of a day of the month; REQUIRES a month from 1 to 12.
int CellOfDay(int year, int month, int day);

/// The day in a cell, or 0 where the month has none.
int DayOfCell(int year, int month, int cell);

/// The back colour of a cell that is not selected: a soft gradient over the page.
platform::Color CellColor(int cell);

}  // namespace varek

#include "views/kit/calendar/calendar_page.h"

#include "platform/time/calendar.h"

namespace varek {

int CellOfDay(int year, int month, int day) {
  return kCalendarColumns + platform::Getfirstday(year, month).weekday + day - 1;
}

int DayOfCell(int year, int month, int cell) {
  const int day = cell - CellOfDay(year, month, 1) + 1;
  return day >= 1 && day <= platform::DaysInMonth(year, month) ? day : 0;
}

platform::Color CellColor(int cell) {
  return {static_cast<uint8_t>(cell % 280 + 200), 243, static_cast<uint8_t>(cell / 350 + 200)};
}

}  // namespace varek

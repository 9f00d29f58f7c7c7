// The arrow keys over a month's page.
#pragma once

#include <QtCore/qnamespace.h>

#include "views/kit/calendar/calendar_page.h"

namespace varek {

/// By how many days an arrow key moves on; 0 for any other key.
constexpr int DaysOfArrow(int key) {
  switch (key) {
    case Qt::Key_Left:
      return -1;
    case Qt::Key_Right:
      return 1;
    case Qt::Key_Up:
      return -kCalendarColumns;
    case Qt::Key_Down:
      return kCalendarColumns;
    default:
      return 0;
  }
}

}  // namespace varek

// The web pages of the event log: a month with the kinds of events of each day, a day's list, and
// the five newest events of the status page. Database errors propagate and end the request.
#pragma once

#include <string>

#include "web/pages/page_values.h"

namespace varek {

/// Writes "eventselect.htm"; 0 and 0 stand for the present month.
void EventMonthPage(int year, int month);
/// The same for the month in `value`, what stands behind "T1=".
void EventMonthRequest(const std::string& value);

/// Writes "eventdata.htm" for the day and the kinds in `value`, what stands behind "T1=".
void EventDayRequest(const std::string& value);

/// Fills FiveEventText and FiveEventTime.
void getFiveEvent(PageValues& values);

}  // namespace varek

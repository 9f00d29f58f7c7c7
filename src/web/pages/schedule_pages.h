// The web pages of the schedule: a month with its actions, a day's entries with their buttons, and
// the edits that come from there. Database errors propagate and end the request.
#pragma once

#include <string>

namespace varek {

/// Writes "scheduleshow.htm"; 0 and 0 stand for the present month.
void ScheduleMonthPage(int year, int month);
/// The same for the month in `value`, what stands behind "T1=".
void ScheduleMonthRequest(const std::string& value);

/// Loads the month, then writes "scheduleevent.htm" for the day; 0, 0 and 0 stand for today.
void MakeEventPage1(int year, int month, int day);
/// The same for the day in `value`, what stands behind "T1=".
void MakeeventPage(const std::string& value);
/// Adds or deletes as the ten fields of `value` say (what stands behind "T2="), then writes the
/// day's page anew. A value that lacks a separator changes nothing.
void AddEventPage(const std::string& value);

}  // namespace varek

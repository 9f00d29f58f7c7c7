// What the readers of the event file share: the events of a month, and how a stored moment,
// "yyyy-mm-dd hh:mm:ss", is shown.
#pragma once

#include <memory>
#include <string>

#include "platform/storage/database.h"

namespace varek {

/// The column of an event's number, 1 to 12.
inline constexpr char kEventType[] = "type";

/// Opens the file for reading. Throws RuntimeError.
platform::Database OpenEventsForReading();

/// The events from the month's first midnight to the next month's. Throws RuntimeError.
std::unique_ptr<platform::Recordset> EventsOfMonth(int year, int month);

/// Day of the month, less one, of a stored moment; far outside for any other text.
size_t DayIndex(const std::string& stored);

/// "yyyy/mm/dd hh:mm:ss" of a stored moment.
std::string ShownMoment(std::string stored);

}  // namespace varek

#include "records/files/event_file.h"

#include <algorithm>

#include "platform/system/paths.h"
#include "platform/text/text.h"
#include "records/files/databases.h"

namespace varek {

namespace {

std::string FirstDayOf(int year, int month) {
  return std::to_string(year) + "/" + std::to_string(month) + "/01#";
}

std::string MonthQuery(int year, int month) {
  const std::string next =
      month == 12 ? std::to_string(year + 1) + "/01/01#" : FirstDayOf(year, month + 1);
  const std::string time = std::string("[") + kEventTime + "]";
  return std::string("Select *  From [") + kEventTable + "] Where  " + time + " >= #" +
         FirstDayOf(year, month) + " AND  " + time + " < #" + next;
}

}  // namespace

platform::Database OpenEventsForReading() {
  return platform::Database(platform::ProgramPath(kEventFile), platform::Access::ReadOnly);
}

std::unique_ptr<platform::Recordset> EventsOfMonth(int year, int month) {
  return OpenEventsForReading().OpenRecordset(MonthQuery(year, month));
}

size_t DayIndex(const std::string& stored) {
  return static_cast<size_t>(platform::LenientNumber(platform::Middle(stored, 9, 2))) - 1;
}

std::string ShownMoment(std::string stored) {
  std::ranges::replace(stored, '-', '/');
  return stored;
}

}  // namespace varek

#include "views/event_log/event_month.h"

#include <algorithm>
#include <utility>

#include "platform/errors/guard.h"
#include "platform/errors/runtime_error.h"
#include "platform/storage/database.h"
#include "platform/system/paths.h"
#include "platform/text/text.h"
#include "records/databases.h"

namespace varek {

namespace {

constexpr char kPlace[] = "form6 reloadmon";
constexpr char kEventType[] = "type";

bool IsKind(int16_t type) { return type >= 1 && type <= kEventCount; }

/// Where a kind stands in EventKinds.
size_t BitOf(int16_t type) { return static_cast<size_t>(type) - 1; }

/// Day of the month, less one, of a stored "yyyy-mm-dd hh:mm:ss"; far outside for any other text.
size_t DayIndex(const std::string& stored) {
  return static_cast<size_t>(platform::LenientNumber(platform::Middle(stored, 9, 2))) - 1;
}

std::string FirstOf(int year, int month) {
  return std::to_string(year) + "/" + std::to_string(month) + "/01#";
}

}  // namespace

std::string EventMonthQuery(int year, int month) {
  const std::string end =
      month == 12 ? std::to_string(year + 1) + "/01/01#" : FirstOf(year, month + 1);
  return "Select *  From [allevent] Where  [DateANDTime] >= #" + FirstOf(year, month) +
         " AND  [DateANDTime] < #" + end;
}

bool EventMonth::reloadmon(int year, int month) {
  days_ = {};
  return platform::Guarded(kPlace, [&] { Load(year, month); });
}

void EventMonth::Load(int year, int month) {
  platform::Database Data1(platform::ProgramPath(kEventFile), platform::Access::ReadOnly);
  const auto rows = Data1.OpenRecordset(EventMonthQuery(year, month));
  for (; !rows->Eof(); rows->MoveNext()) {
    Add(platform::ValueText(rows->Get(kEventTime)),
        platform::RoundToInt16(platform::ValueNumber(rows->Get(kEventType))));
  }
}

void EventMonth::Add(std::string stored, int16_t type) {
  Day& day = days_.at(DayIndex(stored));
  if (day.events.size() == kMostEventsOfADay)
    throw platform::RuntimeError(platform::errors::kSubscript, "too many events on " + stored);
  std::ranges::replace(stored, '-', '/');
  day.events.push_back({std::move(stored), type});
  if (IsKind(type)) day.kinds.set(BitOf(type));
}

const EventMonth::Day& EventMonth::At(int day) const {
  return days_.at(static_cast<size_t>(day) - 1);
}

size_t EventMonth::CountOf(int day) const { return At(day).events.size(); }

std::vector<size_t> EventMonth::KindsOf(int day) const {
  std::vector<size_t> kinds;
  for (size_t kind = 0; kind < kEventCount; ++kind) {
    if (At(day).kinds[kind]) kinds.push_back(kind);
  }
  return kinds;
}

std::vector<const LoggedEvent*> EventMonth::Listed(int day, EventKinds kinds) const {
  std::vector<const LoggedEvent*> listed;
  for (const LoggedEvent& event : At(day).events) {
    if (IsKind(event.type) && kinds[BitOf(event.type)]) listed.push_back(&event);
  }
  return listed;
}

}  // namespace varek

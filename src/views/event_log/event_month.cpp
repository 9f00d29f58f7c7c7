#include "views/event_log/event_month.h"

#include "platform/errors/guard.h"
#include "platform/errors/runtime_error.h"
#include "platform/storage/database.h"
#include "platform/text/text.h"
#include "records/files/databases.h"
#include "records/files/event_file.h"

namespace varek {

namespace {

constexpr char kPlace[] = "form6 reloadmon";

bool IsKind(int16_t type) { return type >= 1 && type <= kEventCount; }

/// Where a kind stands in EventKinds.
size_t BitOf(int16_t type) { return static_cast<size_t>(type) - 1; }

}  // namespace

bool EventMonth::reloadmon(int year, int month) {
  days_ = {};
  return platform::Guarded(kPlace, [&] { Load(year, month); });
}

void EventMonth::Load(int year, int month) {
  const auto rows = EventsOfMonth(year, month);
  for (; !rows->Eof(); rows->MoveNext()) {
    Add(platform::ValueText(rows->Get(kEventTime)),
        platform::RoundToInt16(platform::ValueNumber(rows->Get(kEventType))));
  }
}

void EventMonth::Add(const std::string& stored, int16_t type) {
  Day& day = days_.at(DayIndex(stored));
  if (day.events.size() == kMostEventsOfADay)
    throw platform::RuntimeError(platform::errors::kSubscript, "too many events on " + stored);
  day.events.push_back({ShownMoment(stored), type});
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

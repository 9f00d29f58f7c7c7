// The events of one month, read once and kept in memory: what the event log shows, so that
// clicking and pointing never ask the database. A plain store without a window. It is a snapshot;
// events written later are in it after the next load.
#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <string>
#include <vector>

#include "core/data_center.h"

namespace varek {

/// More events of one day are an error of the data.
constexpr size_t kMostEventsOfADay = 2000;

/// One bit for each kind of event, by its number less one.
using EventKinds = std::bitset<kEventCount>;

struct LoggedEvent {
  std::string time;  ///< "yyyy/mm/dd hh:mm:ss"
  int16_t type;      ///< as stored; from 1 to 12 in sound data
};

class EventMonth final {
 public:
  /// Rebuilds the store from the event file. Where the load fails, or a day has too many events, it
  /// stops and is false: what was read remains, and the cause goes to the error list. REQUIRES a
  /// month from 1 to 12.
  bool reloadmon(int year, int month);

  /// The number of events of a day; REQUIRES a day from 1 to 31, as all below.
  size_t CountOf(int day) const;
  /// The kinds that happened on a day, as event numbers less one in rising order, each once however
  /// often it happened.
  std::vector<size_t> KindsOf(int day) const;
  /// The day's events of these kinds, in the order in which they were written. They live until the
  /// next load.
  std::vector<const LoggedEvent*> Listed(int day, EventKinds kinds) const;

 private:
  struct Day {
    std::vector<LoggedEvent> events;
    EventKinds kinds;
  };

  void Load(int year, int month);
  void Add(const std::string& stored, int16_t type);
  const Day& At(int day) const;

  std::array<Day, 31> days_;  ///< by day less one
};

}  // namespace varek

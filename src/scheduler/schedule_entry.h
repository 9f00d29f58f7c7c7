// One entry of the schedule, as its row holds it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace varek {

/// The first letters of `event`, in the order of the action list and of ActionName; the cancel
/// mark, which no list offers, comes last.
inline constexpr std::string_view kActionLetters = "TLCSRABMD";
inline constexpr size_t kMarkAction = 8;

/// The number of an entry that a cancel mark has taken out.
inline constexpr int32_t kHole = -1;

/// One row. `note` is the restart text of actions R and B: a digit for the days, then "hh:mm".
struct ScheduleEntry {
  int32_t number = 0;  ///< `munber`, or kHole
  std::string note;
  std::string rept;   ///< "Null", "Day", "W0" to "W6", "M1" to "M31"
  std::string time;   ///< "hh:mm"
  std::string event;  ///< "T", "L", "C", "S", "Rnnnn", "A", "Bnnnn", "M", or "D" and a number
  std::string date;   ///< "2026-03-05" as loaded; written also as year/month/day
};

}  // namespace varek

// The only source of time. A test replaces it with a clock that it steps by hand; nothing else in
// the program reads the time.
#pragma once

#include <cstdint>
#include <string>

namespace platform {

/// A moment of local time.
struct DateTime {
  int year = 0;
  int month = 0;   ///< 1 to 12
  int day = 0;     ///< 1 to 31
  int hour = 0;    ///< 0 to 23
  int minute = 0;  ///< 0 to 59
  int second = 0;  ///< 0 to 59

  friend bool operator==(const DateTime&, const DateTime&) = default;
};

/// What a clock must give. A replacement is whole: all three belong together.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime Now() = 0;
  /// Milliseconds since some fixed moment; never goes back, counts on through a suspend.
  virtual int64_t TickCount() = 0;
  /// Lets up to `milliseconds` pass; called by the pump in place of a real wait.
  virtual void Wait(int milliseconds) = 0;
};

/// Replaces the machine's clock, or restores it with nullptr. `clock` must outlive its use.
void ReplaceClock(Clock* clock);

/// The replacement in force, or nullptr.
Clock* ReplacedClock();

DateTime Now();
int64_t TickCount();
int SecondsSinceMidnight();  ///< 0 to 86399, of the local day

/// Seconds since a fixed moment, with every day as long as any other.
int64_t SecondsOf(const DateTime& moment);

std::string FormatDayName(const DateTime& moment);  ///< "yyyymmdd", the name of a day's table
std::string FormatTime(const DateTime& moment);     ///< "hh:mm:ss"
std::string FormatStored(const DateTime& moment);   ///< "yyyy-mm-dd hh:mm:ss", as databases keep it
std::string FormatDateTime(const DateTime& moment);  ///< "yyyy/mm/dd hh:mm:ss", as people see it

}  // namespace platform

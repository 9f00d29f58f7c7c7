#include "platform/time/clock.h"

#include <time.h>

#include <cstdio>

namespace platform {

namespace {

Clock* replacement = nullptr;

DateTime MachineNow() {
  const time_t seconds = time(nullptr);
  tm local{};
  localtime_r(&seconds, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec};
}

int64_t MachineTicks() {
  timespec now{};
  clock_gettime(CLOCK_BOOTTIME, &now);
  return int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

std::string Join(const char* format, const DateTime& moment) {
  char text[64];
  std::snprintf(text, sizeof text, format, moment.year, moment.month, moment.day, moment.hour,
                moment.minute, moment.second);
  return text;
}

}  // namespace

void ReplaceClock(Clock* clock) { replacement = clock; }
Clock* ReplacedClock() { return replacement; }

DateTime Now() { return replacement ? replacement->Now() : MachineNow(); }
int64_t TickCount() { return replacement ? replacement->TickCount() : MachineTicks(); }

int SecondsSinceMidnight() {
  const DateTime now = Now();
  return now.hour * 3600 + now.minute * 60 + now.second;
}

int64_t SecondsOf(const DateTime& moment) {
  tm parts{};
  parts.tm_year = moment.year - 1900;
  parts.tm_mon = moment.month - 1;
  parts.tm_mday = moment.day;
  parts.tm_hour = moment.hour;
  parts.tm_min = moment.minute;
  parts.tm_sec = moment.second;
  return timegm(&parts);
}

std::string FormatDayName(const DateTime& moment) { return Join("%04d%02d%02d", moment); }

std::string FormatTime(const DateTime& moment) {
  return FormatStored(moment).substr(sizeof "yyyy-mm-dd");
}

std::string FormatStored(const DateTime& moment) {
  return Join("%04d-%02d-%02d %02d:%02d:%02d", moment);
}

std::string FormatDateTime(const DateTime& moment) {
  return Join("%04d/%02d/%02d %02d:%02d:%02d", moment);
}

}  // namespace platform

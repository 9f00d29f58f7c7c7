#include "core/journal.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string_view>

#include "core/link_record.h"
#include "platform/errors/log.h"
#include "platform/errors/runtime_error.h"
#include "platform/time/clock.h"

namespace varek {

namespace {

/// A device that comes and goes every second must not fill the journal.
constexpr int64_t kQuietMilliseconds = 60'000;
/// Within this time the same words from two places are one fault that propagates.
constexpr int64_t kPassUpMilliseconds = 200;
constexpr size_t kMostLines = 100;

enum class End { Told, Untold };

std::string ComName(const platform::SerialPort& port) {
  return port.CommPort() == 0 ? "" : " (COM" + std::to_string(port.CommPort()) + ")";
}
std::string PollPort() { return ComName(Link.MSComm1); }
std::string SearchPort() { return ComName(Link.MSComm2); }
/// No machine has all sixteen ports.
bool SearchPortExists() {
  std::error_code error;
  return std::filesystem::exists(platform::SerialDevice(Link.MSComm2.CommPort()), error);
}

struct Row {
  std::string_view place;  ///< a name of the error list, or the beginning of many
  const char* subject;
  const char* failure = "an action failed";
  std::string (*about)() = nullptr;
  End end = End::Told;
  bool (*counts)() = nullptr;  ///< false for what is no fault
};

/// The first row that fits counts. A search goes past many ports, and the next one that opens says
/// nothing about those before it.
constexpr Row kRows[] = {
    {places::kSend, "serial port", "could not send", PollPort},
    {places::kReceive, "serial port", "could not take in a reply", PollPort},
    {places::kSearchOpen, "port search", "could not open a port", SearchPort, End::Untold,
     SearchPortExists},
    {places::kSearchClose, "port search", "could not close a port", SearchPort, End::Untold},
    {places::kSearchUsb, "port search", "could not open the USB unit"},
    {places::kCurve, "web console", "could not draw a curve"},
    {places::kLargeCurve, "web console", "could not draw a curve"},
    {places::kOpenSamples, "recording of samples", "could not open data.mdb"},
    {places::kWriteSample, "recording of samples", "could not write to data.mdb"},
    {places::kOpenEvents, "recording of events", "could not open Event.mdb"},
    {places::kWriteEvent, "recording of events", "could not write to Event.mdb"},
    {places::kPurge, "records", "could not delete what is older than two weeks"},
    {"form12 COMtime", "UPS link", "a poll failed"},
    {"form12 AddDataTimer", "watch over the UPS", "a check did not come to its end"},
    {"form12 ScheduleTimer", "schedule", "could not be run"},
    {"form12 Timer1", "tray icon", "could not be shown"},
    {"form12 EndUPSEE", "end of the program", "a step failed"},
    {"form12 LinkExecute", "second start", "could not be answered"},
    {"form12 ", "monitor"},
    {"form10 system shutdown", "system shutdown", "the command could not be started"},
    {"form10 ", "countdown of the computer", "a step failed"},
    {"form11 ", "countdown of the UPS", "a step failed"},
    {"countdown frame", "countdown window", "its pictures could not be loaded"},
    {"form8 start", "web console", "could not start"},
    {"form8 web log", "web console", "could not record a login"},
    {"form8 ", "web console", "a request failed"},
    {"form1 search", "port search", "could not be run"},
    {"form1 ", "dashboard"},
    {"form2 ExportFile", "data history", "could not export"},
    {"form2 ", "data history"},
    {"form3 ", "oscilloscope"},
    {"form4 ", "schedule window"},
    {"form5 ", "e-mail settings"},
    {"form6 reloadmon", "event log", "could not read a month"},
    {"form6 ", "event log"},
    {"form7 ", "language window"},
    {"form9 ", "SMS settings"},
    {"form14 ", "system settings"},
    {"form15 ", "web login log"},
    {"form16 ", "version window"},
    {"form17 ", "manuals"},
    {"language", "language table", "could not be read"},
    {"", "program"},
};

const Row& RowOf(std::string_view place) {
  return *std::find_if(std::begin(kRows), std::end(kRows),
                       [&](const Row& row) { return place.starts_with(row.place); });
}

std::string About(const Row& row) { return row.about ? row.about() : std::string(); }

struct Fault {
  bool lasts = false;
  std::set<std::string> told;  ///< the lines since it began
  std::optional<int64_t> overAt;

  bool IsQuiet() const {
    return told.empty() && overAt && platform::TickCount() - *overAt < kQuietMilliseconds;
  }
};

std::map<std::string, Fault>& Faults() {
  static std::map<std::string, Fault> faults;
  return faults;
}

struct LastFault {
  std::string place, description;
  int64_t at = 0;
};

LastFault& Last() {
  static LastFault last;
  return last;
}

bool PassesUp(const std::string& place, const std::string& description) {
  const LastFault& last = Last();
  return last.description == description && last.place != place &&
         platform::TickCount() - last.at <= kPassUpMilliseconds;
}

}  // namespace

bool TellFault(const std::string& place, const std::string& description) {
  const Row& row = RowOf(place);
  if (row.counts && !row.counts()) return false;
  Last() = {place, description, platform::TickCount()};
  Fault& fault = Faults()[place];
  fault.lasts = true;
  const std::string line =
      std::string(row.subject) + ": " + row.failure + About(row) + ": " + description;
  if (fault.IsQuiet() || fault.told.size() >= kMostLines) return false;
  if (!fault.told.insert(line).second) return false;
  platform::LogLine(line);
  return true;
}

void TellEscaped(const std::string& place, int number, const std::string& description) {
  // Why a port was closed is reported by the next attempt to open it.
  const bool toldNext = number == platform::errors::kPortNotOpen;
  if (!toldNext && !PassesUp(place, description)) TellFault(place, description);
}

bool TellOver(const std::string& place) {
  const auto found = Faults().find(place);
  const Row& row = RowOf(place);
  if (found == Faults().end() || !found->second.lasts || row.end == End::Untold) return false;
  const bool told = !found->second.told.empty();
  found->second = {};
  if (told) {
    found->second.overAt = platform::TickCount();
    platform::LogLine(std::string(row.subject) + ": works again" + About(row));
  }
  return told;
}

void ForgetFaults() {
  Faults().clear();
  Last() = {};
}

}  // namespace varek

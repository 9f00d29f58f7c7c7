#include "web/server/remote_control.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>

#include "core/data_center.h"
#include "core/link_record.h"
#include "core/unit_commands.h"
#include "platform/errors/runtime_error.h"
#include "platform/text/text.h"
#include "platform/time/clock.h"
#include "records/shutdown/shutdown.h"
#include "web/session/session.h"

namespace varek {

namespace {

constexpr int kMinutesPerDay = 24 * 60;
constexpr size_t kLongestMinutes = 64;

// A restart: letter, one digit of days, a character that is passed over, hour "+", minute "+".
constexpr size_t kDaysPlace = 1;
constexpr size_t kHourPlace = 3;

void ShutDownComputer() { StartSystemShutdown(DataCenter.settings.SystemShutdownBuffer); }
void ShutDownUnit(int restart) { StartUPSShutdown(DataCenter.settings.UPSShutdownBuffer, restart); }

/// The minutes go to the unit as they come, up to the end of a line: what stood behind it would be
/// a command of its own, and could cut power without the password.
/// What is longer than any command is ignored: it would only keep the line busy.
void TestForMinutes(const std::string& command) {
  const std::string minutes = command.substr(1, command.find_first_of("\r\n") - 1);
  if (minutes.size() <= kLongestMinutes) Link.PendingCommand = commands::kShortTest + minutes;
}

double NumberBetween(const std::string& text, size_t first, size_t end) {
  return platform::LenientNumber(std::string_view(text).substr(first, end - first));
}

int Minutes(double value) {
  using Limits = std::numeric_limits<int>;
  const double rounded = platform::RoundHalfEven(value);
  if (!(rounded >= Limits::min() && rounded <= Limits::max())) {
    throw platform::RuntimeError(platform::errors::kOverflow, "restart time does not fit");
  }
  return static_cast<int>(rounded);
}

/// Minutes from now to the restart that `command` asks for, less one; nothing when a part of it is
/// missing. Never checked: it may be negative.
std::optional<int> RestartMinutes(const std::string& command) {
  const size_t hourEnd = command.find('+', kHourPlace);
  if (hourEnd == std::string::npos) return {};
  const size_t minuteEnd = command.find('+', hourEnd + 1);
  if (minuteEnd == std::string::npos) return {};
  const double days = NumberBetween(command, kDaysPlace, kDaysPlace + 1);
  const double hour = NumberBetween(command, kHourPlace, hourEnd);
  const int minute = platform::RoundToInt16(NumberBetween(command, hourEnd + 1, minuteEnd));
  const platform::DateTime now = platform::Now();
  return Minutes(days * kMinutesPerDay + (hour - now.hour) * 60 + minute - now.minute - 1);
}

void RestartUnit(const std::string& command) {
  if (const auto restart = RestartMinutes(command)) ShutDownUnit(*restart);
}

void RestartUnitAndShutDown(const std::string& command) {
  const auto restart = RestartMinutes(command);
  if (!restart) return;
  ShutDownUnit(*restart);
  ShutDownComputer();
}

struct Order {
  char letter;
  bool needsToken;
  bool needsOutput;
  void (*action)(const std::string& command);
};

constexpr Order kOrders[] = {
    {'T', false, false, [](const std::string&) { Link.PendingCommand = commands::kShortTest; }},
    {'L', false, false, [](const std::string&) { Link.PendingCommand = commands::kTestUntilLow; }},
    {'D', false, false, TestForMinutes},
    {'P', false, false, [](const std::string&) { Link.PendingCommand = commands::kStopTest; }},
    {'Q', false, false, [](const std::string&) { Link.PendingCommand = commands::kToggleBeeper; }},
    {'C', false, true, [](const std::string&) { CancelShutdowns(); }},
    {'S', true, true, [](const std::string&) { ShutDownUnit(kUntimedRestart); }},
    {'M', true, false, [](const std::string&) { ShutDownComputer(); }},
    {'A', true, false,
     [](const std::string&) {
       ShutDownUnit(kUntimedRestart);
       ShutDownComputer();
     }},
    {'R', true, true, RestartUnit},
    {'B', true, false, RestartUnitAndShutDown},
};

bool IsAllowed(const Order& order, const std::string& command) {
  if (order.needsToken && command.find(ControlToken()) == std::string::npos) return false;
  return !order.needsOutput || DataCenter.readings.OutputVoltage > 0;
}

}  // namespace

void AnyControl(const std::string& command) {
  if (command.empty()) return;
  const auto* order = std::ranges::find(kOrders, command.front(), &Order::letter);
  if (order != std::end(kOrders) && IsAllowed(*order, command)) order->action(command);
}

}  // namespace varek

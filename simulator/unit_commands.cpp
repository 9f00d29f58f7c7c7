#include "simulator/unit_commands.h"

#include <algorithm>
#include <charconv>

namespace simulator {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kMinute{60'000};
constexpr size_t kMostDigits = 4;
constexpr milliseconds kNoTimedRestart = 9999 * kMinute;

std::optional<int> ParseDigits(std::string_view text) {
  const bool digits =
      std::all_of(text.begin(), text.end(), [](unsigned char c) { return c >= '0' && c <= '9'; });
  if (text.empty() || text.size() > kMostDigits || !digits) return std::nullopt;
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

std::optional<milliseconds> ParseMinutes(std::string_view text) {
  const bool tenths = text.size() == 2 && text.front() == '.';
  const auto number = ParseDigits(tenths ? text.substr(1) : text);
  if (!number) return std::nullopt;
  return *number * (tenths ? kMinute / 10 : kMinute);
}

std::optional<ShutdownOrder> ParseShutdown(std::string_view command) {
  if (!command.starts_with('S')) return std::nullopt;
  const size_t mark = command.find('R');
  const auto delay = ParseMinutes(command.substr(1, mark == command.npos ? mark : mark - 1));
  if (!delay) return std::nullopt;
  if (mark == command.npos) return ShutdownOrder{*delay, std::nullopt};

  const auto restart = ParseMinutes(command.substr(mark + 1));
  if (!restart) return std::nullopt;
  if (*restart == kNoTimedRestart) return ShutdownOrder{*delay, std::nullopt};
  return ShutdownOrder{*delay, restart};
}

}  // namespace simulator

// The arguments of the commands that carry some: delays in minutes.
#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace simulator {

/// An order to switch the output off.
struct ShutdownOrder {
  std::chrono::milliseconds delay{0};
  /// From the moment of switching off until the output comes back; none when no timed restart is
  /// wanted.
  std::optional<std::chrono::milliseconds> restart;
};

/// "5", "05" or "0120" minutes, at most four digits, or ".3" for tenths of a minute. Nothing when
/// the text is neither.
std::optional<std::chrono::milliseconds> ParseMinutes(std::string_view text);

/// "S" with a delay, and perhaps "R" with a restart delay of one to four digits, of which 9999
/// stands for none. Nothing when the command is not of that form.
std::optional<ShutdownOrder> ParseShutdown(std::string_view command);

}  // namespace simulator

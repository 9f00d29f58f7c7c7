#include "core/unit_commands.h"

#include "platform/text/text.h"

namespace varek {

std::string ShutdownCommand(int minutes, int restartMinutes) {
  std::string shutdown = commands::kShutdown + platform::ZeroPadded(minutes, 2);
  if (restartMinutes == kNoRestart) return shutdown;
  return shutdown + commands::kRestart + platform::ZeroPadded(restartMinutes, 4);
}

bool IsShutdownCommand(const std::string& command) {
  return command.starts_with(commands::kShutdown);
}

}  // namespace varek

#include "platform/errors/log.h"

#include <cstdio>
#include <cstdlib>

namespace platform {

void LogLine(const std::string& text) {
  // The service manager reads the level from the number in front of the line.
  const char* level = std::getenv("JOURNAL_STREAM") ? "<4>" : "";
  std::fprintf(stderr, "%s%s\n", level, text.c_str());
}

}  // namespace platform

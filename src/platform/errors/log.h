// The journal, which the administrator reads.
#pragma once

#include <string>

namespace platform {

/// Writes one line to standard error, marked as a warning where that leads to the journal.
void LogLine(const std::string& text);

}  // namespace platform

// The newest messages, which the dashboard lists.
#pragma once

#include <functional>
#include <string>

namespace varek {

/// Puts the present date and time, two blanks and `text` on top of DebugLines.
void AddEventLine(const std::string& text);

/// Called after DebugLines has changed while the dashboard is open; the dashboard sets it.
void OnDebugLinesChanged(std::function<void()> refresh);

}  // namespace varek

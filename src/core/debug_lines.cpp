#include "core/debug_lines.h"

#include <algorithm>
#include <utility>

#include "core/data_center.h"
#include "platform/time/clock.h"

namespace varek {

namespace {

constexpr int kDashboard = 1;

std::function<void()>& DebugLinesRefresh() {
  static std::function<void()> refresh;
  return refresh;
}

}  // namespace

void AddEventLine(const std::string& text) {
  auto& lines = DataCenter.DebugLines;
  std::move_backward(lines.begin(), lines.end() - 1, lines.end());
  lines[0] = platform::FormatDateTime(platform::Now()) + "  " + text;
  if (DataCenter.FormOpen[kDashboard] && DebugLinesRefresh()) DebugLinesRefresh()();
}

void OnDebugLinesChanged(std::function<void()> refresh) {
  DebugLinesRefresh() = std::move(refresh);
}

}  // namespace varek

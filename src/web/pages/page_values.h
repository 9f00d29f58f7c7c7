// What requests leave for the pages that are expanded after them: a page prints the times of the
// chart and the events that were fetched last, by itself or by a page before it.
#pragma once

#include <array>
#include <string>

namespace varek {

struct PageValues {
  // The hour of the chart that was drawn last, "hh:mm:ss".
  std::string ChartStartTime;
  std::string ChartEndTime;
  // The five newest events, the newest first. Empty where there are fewer.
  std::array<std::string, 5> FiveEventText;
  std::array<std::string, 5> FiveEventTime;
};

}  // namespace varek

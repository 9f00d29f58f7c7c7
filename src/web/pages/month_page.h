// What the month pages of the schedule and of the events share: how a generated page is filled in,
// and the calendar with its cells. The pages' scripts call `postdata(day)` from these cells.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace varek {

struct PageDate {
  int year = 0;
  int month = 0;
  int day = 0;
};

/// The present date when all of `asked` is 0, else `asked`.
PageDate OrToday(const PageDate& asked);

/// Throws RuntimeError 9 for a month that no calendar has (the year from 1 to 9999).
void RequireMonth(int year, int month);

using Markers = std::vector<std::pair<std::string, std::string>>;

/// The source of page `name` with each marker replaced once by its text, in this order. A source
/// without one of them comes out empty. Throws RuntimeError 53 when there is no source.
std::string FillSource(const std::string& name, const Markers& markers);

/// Writes calendar page `name`: year, month, and at `tableMarker` six weeks of seven cells, Sunday
/// first. `images` gives what stands below a day's number.
void WriteMonthPage(const std::string& name, int year, int month, const std::string& tableMarker,
                    const std::function<std::string(int day)>& images);

}  // namespace varek

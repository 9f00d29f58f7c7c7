// What the oscilloscope has loaded: the samples of a run of hours of one day, one slot a second,
// and the day's events in that time. A snapshot: new samples do not appear until the next load.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/storage/database.h"
#include "records/files/sample_columns.h"

namespace varek {

constexpr int kHoursOfDay = 24;
constexpr int kSecondsOfHour = 3600;
/// One curve for each measure.
constexpr int kCurveCount = int{kMeasureCount};
/// In a slot without a sample.
constexpr float kNoSample = -999;

/// One slot a second from the first hour on.
using Curve = std::vector<float>;

/// Which lines of the hours list are selected.
using HourLines = std::array<bool, kHoursOfDay>;

struct ScopeHours {
  int16_t StartHour = 0;     ///< 0 to 23, the first selected line
  int EndHour = 0;           ///< the hour behind the first run of lines, 1 to 24; 0 without any
  int32_t TotalSeconds = 0;  ///< of all selected lines, those behind a hole included
};

/// Only the first run of lines is loaded; one without any has no seconds.
ScopeHours ChosenHours(const HourLines& lines);

/// Not every unit measures its load and its temperature.
bool IsCurveMeasured(int curve);

/// The date "yyyy/mm/dd" of a day named "yyyymmdd".
std::string DateOf(const std::string& dayTable);

struct ScopeEvent {
  int32_t time = 0;  ///< seconds from the first hour on
  uint8_t type = 0;  ///< 1 to 12
  std::string text;  ///< date and time as stored
};

enum class LoadResult { Loaded, NoTable, NoRows };

enum class TimeStyle { HourMinute, HourMinuteSecond };

class ScopeData final {
 public:
  /// Called with 0 to 100 each time that another whole per cent of the rows is read.
  using Progress = std::function<void(int percent)>;

  /// Forgets what is loaded and loads `hours` of the day; without a table or rows it stays empty.
  /// Temperatures are stored in the unit that is chosen now. Errors of the databases propagate.
  LoadResult LoadDayData(platform::Database& data, platform::Database& event,
                         const std::string& dayTable, const ScopeHours& hours,
                         const Progress& progress);

  int32_t TotalSeconds() const { return hours_.TotalSeconds; }
  /// TotalSeconds + 1 slots; REQUIRES a curve from 0 to 5.
  const Curve& Samples(int curve) const { return curves_.at(static_cast<size_t>(curve)); }
  /// The sample of that second, or kNoSample where there is none.
  float SampleAt(int curve, int32_t second) const;
  const std::vector<ScopeEvent>& EventList() const { return events_; }

  /// The time of day of a second, "9:5:0" or "9:5": plain numbers without leading zeros.
  std::string TimeText(int32_t second, TimeStyle style) const;

 private:
  void Clear(const ScopeHours& hours);
  /// The slot of a stored date or time, or -1 outside the hours.
  int32_t SlotOf(const std::string& stored) const;
  void LoadSamples(platform::Recordset& rows, const Progress& progress);
  void StoreRow(platform::Recordset& rows);
  void LoadEvents(platform::Recordset& rows);

  ScopeHours hours_;
  std::array<Curve, kCurveCount> curves_{Curve(1, kNoSample), Curve(1, kNoSample),
                                         Curve(1, kNoSample), Curve(1, kNoSample),
                                         Curve(1, kNoSample), Curve(1, kNoSample)};
  std::vector<ScopeEvent> events_;
};

}  // namespace varek

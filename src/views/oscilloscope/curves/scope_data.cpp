#include "views/oscilloscope/curves/scope_data.h"

#include <algorithm>

#include "platform/errors/guard.h"
#include "platform/text/text.h"
#include "records/files/databases.h"
#include "records/files/event_file.h"

namespace varek {

namespace {

constexpr char kLastMoment[] = "23:59:59";
constexpr size_t kTimeLength = 8;  ///< of "hh:mm:ss", which ends every stored moment

/// 24 o'clock is no time of a day.
std::string HourText(int hour) {
  return hour == kHoursOfDay ? kLastMoment : platform::ZeroPadded(hour, 2) + ":00:00";
}

/// Without a transaction around the rows, the engine would take and drop its lock for each of them.
/// Where it can't be had, the load is slower and no worse.
class LockedOnce final {
 public:
  explicit LockedOnce(platform::Database& database) : database_(database) {
    platform::IgnoreErrors([this] { database_.BeginReading(); });
  }
  ~LockedOnce() {
    platform::IgnoreErrors([this] { database_.Rollback(); });
  }
  LockedOnce(const LockedOnce&) = delete;
  LockedOnce& operator=(const LockedOnce&) = delete;

 private:
  platform::Database& database_;
};

int ColumnOf(int curve) { return kInputColumn + curve; }

/// Samples on the bounds are left out.
std::string SampleQuery(const std::string& dayTable, const std::string& timeField,
                        const ScopeHours& hours) {
  const std::string lower = "[" + timeField + "] > #" + HourText(hours.StartHour) + "#";
  const std::string upper = "[" + timeField + "] < #" + HourText(hours.EndHour) + "#";
  return "Select *  From  [" + dayTable + "] Where  " + lower + " And " + upper;
}

/// Events on the bounds are not.
std::string EventQuery(const std::string& dayTable, const ScopeHours& hours) {
  const std::string date = DateOf(dayTable);
  return "Select *  From  [allevent] Where [DateANDTime] >= #" + date + " " +
         HourText(hours.StartHour) + "# And" + " [DateANDTime] <= #" + date + " " +
         HourText(hours.EndHour) + "# And" + " [type] In (1,2,3,4,5,6,7,8,9,10,11,12)";
}

}  // namespace

ScopeHours ChosenHours(const HourLines& lines) {
  const auto count = std::count(lines.begin(), lines.end(), true);
  if (count == 0) return {};
  const auto start = std::find(lines.begin(), lines.end(), true);
  const auto end = std::find(start, lines.end(), false);
  return {static_cast<int16_t>(start - lines.begin()), static_cast<int>(end - lines.begin()),
          static_cast<int32_t>(count * kSecondsOfHour)};
}

bool IsCurveMeasured(int curve) { return IsMeasured(ColumnOf(curve)); }

std::string DateOf(const std::string& dayTable) {
  return dayTable.substr(0, 4) + "/" + dayTable.substr(4, 2) + "/" + dayTable.substr(6);
}

LoadResult ScopeData::LoadDayData(platform::Database& data, platform::Database& event,
                                  const std::string& dayTable, const ScopeHours& hours,
                                  const Progress& progress) {
  Clear(hours);
  if (!TableExists(dayTable)) return LoadResult::NoTable;
  const LockedOnce lock(data);
  const std::string query = SampleQuery(dayTable, TimeColumnName(data, dayTable), hours);
  const auto rows = data.OpenRecordset(query);
  if (rows->Eof()) return LoadResult::NoRows;
  LoadSamples(*rows, progress);
  LoadEvents(*event.OpenRecordset(EventQuery(dayTable, hours)));
  return LoadResult::Loaded;
}

void ScopeData::Clear(const ScopeHours& hours) {
  hours_ = hours;
  events_.clear();
  const auto slots = static_cast<size_t>(hours.TotalSeconds) + 1;
  for (Curve& curve : curves_) curve.assign(slots, kNoSample);
}

void ScopeData::LoadSamples(platform::Recordset& rows, const Progress& progress) {
  const int64_t count = rows.RecordCount();
  int shown = -1;
  for (int64_t row = 0; !rows.Eof(); rows.MoveNext(), ++row) {
    StoreRow(rows);
    const int percent = static_cast<int>((row + 1) * 100 / count);
    if (percent != shown) progress(shown = percent);
  }
}

void ScopeData::StoreRow(platform::Recordset& rows) {
  const int32_t slot = SlotOf(platform::ValueText(rows.Get(kTimeColumn)));
  if (slot < 0) return;
  for (int curve = 0; curve < kCurveCount; ++curve) {
    const int column = ColumnOf(curve);
    const auto stored = static_cast<float>(platform::ValueNumber(rows.Get(column)));
    curves_[static_cast<size_t>(curve)][static_cast<size_t>(slot)] = ShownValue(column, stored);
  }
}

void ScopeData::LoadEvents(platform::Recordset& rows) {
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::string text = platform::ValueText(rows.Get(kEventTime));
    const auto type = static_cast<uint8_t>(platform::ValueNumber(rows.Get(kEventType)));
    if (const int32_t slot = SlotOf(text); slot >= 0) events_.push_back({slot, type, text});
  }
}

int32_t ScopeData::SlotOf(const std::string& stored) const {
  if (stored.size() < kTimeLength) return -1;
  const char* time = stored.data() + stored.size() - kTimeLength;
  const auto number = [time](int at) { return (time[at] - '0') * 10 + time[at + 1] - '0'; };
  const int32_t slot = (number(0) - hours_.StartHour) * kSecondsOfHour + number(3) * 60 + number(6);
  return slot <= hours_.TotalSeconds ? slot : -1;
}

float ScopeData::SampleAt(int curve, int32_t second) const {
  const Curve& samples = Samples(curve);
  const bool inside = second >= 0 && static_cast<size_t>(second) < samples.size();
  return inside ? samples[static_cast<size_t>(second)] : kNoSample;
}

std::string ScopeData::TimeText(int32_t second, TimeStyle style) const {
  const std::string text = std::to_string(hours_.StartHour + second / kSecondsOfHour) + ":" +
                           std::to_string(second % kSecondsOfHour / 60);
  return style == TimeStyle::HourMinute ? text : text + ":" + std::to_string(second % 60);
}

}  // namespace varek

#include "records/files/databases.h"

#include <utility>

#include "core/data_center.h"
#include "core/journal.h"
#include "platform/errors/guard.h"
#include "platform/system/paths.h"
#include "platform/text/text.h"
#include "platform/time/calendar.h"
#include "platform/time/clock.h"
#include "records/files/clock_jump.h"
#include "records/files/recording_watch.h"
#include "records/files/sample_columns.h"

namespace varek {

OpenRecords Records;

namespace {

using platform::Database;
using platform::Recordset;
using platform::ZeroPadded;

constexpr int kDaysKept = 14;

ClockJump clockJump;
/// The day whose purge is due, "yyyymmdd", or nothing.
std::string purgeFor;

platform::TableDef DayTable(const std::string& name) {
  platform::TableDef table{name, {}};
  for (const SampleField& field : kSampleFields) table.fields.push_back({field.name, field.type});
  return table;
}

/// The first day that is kept, by year, month and day arithmetic alone.
platform::DateTime CutOffDay() {
  platform::DateTime day = platform::Now();
  day.day -= kDaysKept;
  if (day.day >= 1) return day;
  if (day.month == 1) {
    day.year -= 1;
    day.month = 12;
  } else {
    day.month -= 1;
  }
  day.day += platform::DaysInMonth(day.year, day.month);
  return day;
}

void DropTablesBefore(const platform::DateTime& cutOff) {
  const double cutOffNumber = cutOff.year * 10000 + cutOff.month * 100 + cutOff.day;
  for (const std::string& name : Records.data->TableNames()) {
    const double number = platform::LenientNumber(name);
    if (number > 0 && number < cutOffNumber) Records.data->DeleteTable(name);
  }
}

void DeleteAll(Database& database, const std::string& query) {
  const auto rows = database.OpenRecordset(query);
  while (!rows->Eof() && rows->RecordCount() > 0) {
    rows->MoveFirst();
    rows->Delete();
  }
}

std::string RowsWhere(const std::string& table, const std::string& column) {
  return "Select * From [" + table + "] Where [" + column;
}

/// One transaction a table: thousands of old rows cost one wait for the disk, and a missing web log
/// does not keep old events.
void DeleteRowsBefore(const platform::DateTime& cutOff) {
  const std::string bound = "] < #" + ZeroPadded(cutOff.year, 4) + "/" +
                            ZeroPadded(cutOff.month, 2) + "/" + ZeroPadded(cutOff.day, 2) + "#";
  Database database(platform::ProgramPath(kEventFile));
  for (const auto& [table, column] :
       {std::pair(kEventTable, kEventTime), std::pair(kWebLogTable, kWebLogTime)}) {
    database.BeginTransaction();
    DeleteAll(database, RowsWhere(table, column) + bound);
    database.CommitTransaction();
  }
}

/// Old rows that stay a day longer are worth less than the samples of a day.
void PurgeIfPossible() {
  try {
    PurgeOldRecords();
    TellOver(places::kPurge);
  } catch (const std::exception& error) {
    TellFault(places::kPurge, error.what());
  }
}

/// A day that the clock has left again brings no purge.
void PurgeWhenSettled() {
  if (purgeFor.empty() || !clockJump.IsSettled()) return;
  const bool holds = GetTodayText() >= purgeFor;
  purgeFor.clear();
  if (holds) PurgeIfPossible();
}

/// Nothing stays half open.
void OpenOrClose(void (*open)(), void (*close)()) {
  try {
    open();
  } catch (...) {
    close();
    throw;
  }
}

void OpenSampleRecords() {
  Records.data.emplace(platform::ProgramPath(kDataFile));
  OpenTodayTable();
  Records.lastSampleDate = Records.todayTable;
}

void OpenEventRecords() {
  Records.event.emplace(platform::ProgramPath(kEventFile));
  Records.allevent = Records.event->OpenRecordset(kEventTable);
  Records.schedule = Records.event->OpenRecordset(kScheduleTable);
}

void Close(std::optional<Database>& file) {
  if (file && file->HasMoved()) platform::IgnoreErrors([&] { file->EmptyLog(); });
  file.reset();
}

void FollowDate() {
  clockJump.Look();
  PurgeWhenSettled();
  const std::string today = GetTodayText();
  if (today == Records.lastSampleDate) return;
  OpenTodayTable();
  Records.lastSampleDate = today;
}

void WriteSample(Recordset& samples) {
  samples.AddNew();
  samples.Set(kTimeColumn, platform::FormatTime(platform::Now()));
  samples.Set(kInputColumn, DataCenter.readings.InputVoltage);
  samples.Set(kOutputColumn, DataCenter.readings.OutputVoltage);
  samples.Set(kLoadColumn, int64_t{DataCenter.readings.LoadPercent});
  samples.Set(kFrequencyColumn, DataCenter.readings.Frequency);
  samples.Set(kBatteryColumn, int64_t{BatteryPercent(DataCenter.readings.BatteryVoltage)});
  samples.Set(kTemperatureColumn, DataCenter.readings.Temperature);
  samples.Update();
}

}  // namespace

bool OpenDatabases() {
  clockJump.Trust();
  purgeFor.clear();
  platform::IgnoreErrors([] {
    Watch(Recording::OpenSamples, OpenSampleFile);
    Watch(Recording::OpenEvents, OpenEventFile);
  });
  const bool opened = Records.data && Records.event;
  if (!opened) CloseDatabases();
  Records.wanted = true;
  Records.lookedAt = platform::TickCount();
  return opened;
}

void OpenSampleFile() {
  OpenOrClose(OpenSampleRecords, CloseSampleFile);
  DataCenter.DatabaseReady = kSet;
}

void CloseSampleFile() {
  DataCenter.DatabaseReady = kClear;
  Records.samples.reset();
  Close(Records.data);
}

void OpenEventFile() { OpenOrClose(OpenEventRecords, CloseEventFile); }

void CloseEventFile() {
  Records.allevent.reset();
  Records.schedule.reset();
  Close(Records.event);
}

void OpenTodayTable() {
  Records.todayTable = GetTodayText();
  if (TableExists(Records.todayTable)) {
    Records.samples = Records.data->OpenRecordset(Records.todayTable);
    return;
  }
  Records.data->AppendTable(DayTable(Records.todayTable));
  Records.samples = Records.data->OpenRecordset(Records.todayTable);
  purgeFor = Records.todayTable;
  PurgeWhenSettled();
}

void AddSample() {
  platform::IgnoreErrors([] {
    Watch(Recording::WriteSample, [] {
      FollowDate();
      WriteSample(*Records.samples);
    });
  });
}

void PurgeOldRecords() {
  const platform::DateTime cutOff = CutOffDay();
  DropTablesBefore(cutOff);
  DeleteRowsBefore(cutOff);
}

bool TableExists(const std::string& name) { return Records.data && Records.data->HasTable(name); }

void CloseDatabases() {
  DataCenter.DatabaseReady = kClear;
  Records = OpenRecords();
}

}  // namespace varek

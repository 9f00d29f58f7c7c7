#include "scheduler/schedule_rows.h"

#include <cmath>
#include <limits>

#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"

namespace varek {

namespace {

using platform::ValueNumber;
using platform::ValueText;

// Do not change: the files of every installation hold these names, the misspelled one included.
constexpr char kNumber[] = "munber";
constexpr char kDate[] = "date";
constexpr char kTime[] = "time";
constexpr char kEvent[] = "event";
constexpr char kRept[] = "rept";
constexpr char kNote[] = "note";

/// One less than the largest, so that the next entry's number fits too.
int32_t EntryNumber(const platform::Value& value) {
  const double number = ValueNumber(value);
  if (!(std::abs(number) < std::numeric_limits<int32_t>::max())) {
    throw platform::RuntimeError(platform::errors::kOverflow, "an entry's number does not fit");
  }
  return static_cast<int32_t>(number);
}

}  // namespace

ScheduleRows::ScheduleRows(const std::string& tableOrQuery)
    : database_(platform::ProgramPath(kEventFile)), rows_(database_.OpenRecordset(tableOrQuery)) {}

bool ScheduleRows::Find(int number) {
  rows_->FindFirst("[munber] = " + std::to_string(number));
  return !rows_->NoMatch();
}

ScheduleEntry ScheduleRows::Current() {
  return {.number = EntryNumber(rows_->Get(kNumber)),
          .note = ValueText(rows_->Get(kNote)),
          .rept = ValueText(rows_->Get(kRept)),
          .time = ValueText(rows_->Get(kTime)),
          .event = ValueText(rows_->Get(kEvent)),
          .date = ValueText(rows_->Get(kDate))};
}

int ScheduleRows::LastNumber() {
  if (rows_->RecordCount() == 0) return 0;
  rows_->MoveLast();
  return EntryNumber(rows_->Get(0));
}

void ScheduleRows::Append(const ScheduleEntry& entry) {
  rows_->AddNew();
  Write(entry);
}

void ScheduleRows::Overwrite(const ScheduleEntry& entry) {
  rows_->Edit();
  Write(entry);
}

void ScheduleRows::Write(const ScheduleEntry& entry) {
  rows_->Set(kNumber, int64_t{entry.number});
  rows_->Set(kDate, entry.date);
  rows_->Set(kTime, entry.time);
  rows_->Set(kEvent, entry.event);
  rows_->Set(kRept, entry.rept);
  rows_->Set(kNote, entry.note);
  rows_->Update();
}

void ScheduleRows::DeleteWithMarks(int number) {
  const std::string marks = "[event] = 'D" + std::to_string(number) + "'";
  database_.BeginTransaction();
  rows_->Delete();
  for (rows_->FindFirst(marks); !rows_->NoMatch(); rows_->FindNext(marks)) rows_->Delete();
  database_.CommitTransaction();
}

}  // namespace varek

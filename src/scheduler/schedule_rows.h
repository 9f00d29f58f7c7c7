// The rows of the table `schedule`, through a connection of their own: the windows, the web pages
// and the runner each see what the others have written at their next opening.
#pragma once

#include <memory>
#include <string>

#include "platform/storage/database.h"
#include "records/files/databases.h"
#include "scheduler/schedule_entry.h"

namespace varek {

class ScheduleRows final {
 public:
  /// Opens the whole table, or the rows of a query. Throws RuntimeError.
  explicit ScheduleRows(const std::string& tableOrQuery = kScheduleTable);

  bool Eof() const { return rows_->Eof(); }
  void MoveNext() { rows_->MoveNext(); }
  /// Makes the entry of that number the current row; false when there is none.
  bool Find(int number);

  /// The current row. Throws RuntimeError when there is none.
  ScheduleEntry Current();
  /// `munber` of the last row, 0 without rows.
  int LastNumber();

  void Append(const ScheduleEntry& entry);
  void Overwrite(const ScheduleEntry& entry);
  void DeleteCurrent() { rows_->Delete(); }
  /// Deletes the current row and every mark that cancels entry `number`, together or not at all: a
  /// mark that stayed behind would cancel the next entry that gets the number.
  void DeleteWithMarks(int number);

 private:
  void Write(const ScheduleEntry& entry);

  platform::Database database_;
  std::unique_ptr<platform::Recordset> rows_;
};

}  // namespace varek

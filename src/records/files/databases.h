// The databases: one file of events, schedule and web log, one file with a table of samples for
// each day. This module owns their tables; every other reads and writes them as defined here. The
// files and the tables of the event file come with the installation: the program makes the table
// of the day and nothing else.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/storage/database.h"

namespace varek {

// Names of files, tables and columns. Do not change: the files of every installation hold them.
inline constexpr char kEventFile[] = "\\database\\Event.mdb";
inline constexpr char kDataFile[] = "\\database\\data.mdb";
inline constexpr char kEventTable[] = "allevent";
inline constexpr char kScheduleTable[] = "schedule";
inline constexpr char kWebLogTable[] = "HTTPLOG";
inline constexpr char kEventTime[] = "DateANDTime";
inline constexpr char kWebLogTime[] = "Time";

/// The handles that stay open from start to end.
struct OpenRecords {
  std::optional<platform::Database> data;
  std::optional<platform::Database> event;
  std::unique_ptr<platform::Recordset> samples;   ///< today's table
  std::unique_ptr<platform::Recordset> allevent;  ///< column 0 `DateANDTime`, 1 `type`
  std::unique_ptr<platform::Recordset> schedule;
  std::string todayTable;      ///< "yyyymmdd"
  std::string lastSampleDate;  ///< "yyyymmdd" of the last sample

  bool wanted = false;     ///< from OpenDatabases to CloseDatabases, open or not
  int64_t lookedAt = 0;    ///< tick count of the last look after a file
  bool eventTurn = false;  ///< the last look was after the event file
};

extern OpenRecords Records;

/// Opens both files and the permanent recordsets; sets DatabaseReady and returns true. On any
/// failure it closes what it opened, reports why, and returns false; KeepRecording tries again.
bool OpenDatabases();

/// Open one file with its recordsets, or close it. The sample file sets and clears DatabaseReady.
/// Both openers throw RuntimeError, and leave the file closed then.
void OpenSampleFile();
void CloseSampleFile();
void OpenEventFile();
void CloseEventFile();

/// Makes today's table the one that samples go to; a table that has to be made first also brings
/// the purge, whose failure is reported and waits for the next day. When the clock has jumped to
/// this day, the purge waits until that has settled. Throws RuntimeError.
void OpenTodayTable();

/// Writes one row for this second. A failure costs that sample only; the next call tries again.
void AddSample();

/// Drops sample tables, events and web log entries from before the day 14 days ago. Throws
/// RuntimeError.
void PurgeOldRecords();

/// True if the sample file has a table of exactly that name.
bool TableExists(const std::string& name);

/// Closes everything; DatabaseReady is clear afterwards.
void CloseDatabases();

}  // namespace varek

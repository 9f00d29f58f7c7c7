// Writes a query's rows to a file of comma-separated values.
#pragma once

#include <functional>
#include <string>

#include "views/history/rows/history_rows.h"

namespace varek {

/// Called after each record with how much is written, above 0 to 100; false gives the export up.
using ExportProgress = std::function<bool(double percent)>;

/// Writes a line of column names, then a line for each row. Every value is followed by a comma, the
/// last one too; lines end in carriage return and line feed; columns of what the unit does not
/// measure are left out. Replaces an existing file. False when it was given up. Throws RuntimeError
/// 75 when the file can't be opened or written, and what HistoryRows throws. A file that has not
/// become whole is removed. `written` may let other handlers run.
bool WriteRows(const std::string& fileName, HistoryRows& rows, const ExportProgress& written);

}  // namespace varek

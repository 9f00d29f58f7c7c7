#include "views/history/rows/history_export.h"

#include <filesystem>
#include <fstream>

#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"
#include "records/files/sample_columns.h"

namespace varek {

namespace {

constexpr char kLineEnd[] = "\r\n";

[[noreturn]] void FailAccess(const std::string& fileName) {
  throw platform::RuntimeError(platform::errors::kPathAccess, fileName + ": can't be written");
}

/// Chosen once: a unit that is exchanged meanwhile must not change the columns on the way.
std::vector<int> ColumnsOf(const HistoryRows& rows) {
  std::vector<int> columns;
  for (int column = 0; column < rows.ColumnCount(); ++column)
    if (IsMeasured(column)) columns.push_back(column);
  return columns;
}

std::string HeaderLine(const HistoryRows& rows, const std::vector<int>& columns) {
  const std::vector<std::string> names = rows.ColumnNames();
  std::string line;
  for (const int column : columns) line += names[static_cast<size_t>(column)] + ",";
  return line + kLineEnd;
}

std::string RowLine(HistoryRows& rows, int row, const std::vector<int>& columns) {
  std::string line;
  for (const int column : columns) line += rows.Text(row, column) + ",";
  return line + kLineEnd;
}

/// Removes a file that is not completed: it would pass for the whole result. A device that was
/// named as the file stays.
class Unfinished final {
 public:
  explicit Unfinished(const std::string& fileName) : fileName_(fileName) {}
  ~Unfinished() {
    std::error_code error;
    if (!completed_ && platform::IsFile(fileName_)) std::filesystem::remove(fileName_, error);
  }
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;
  void Complete() { completed_ = true; }

 private:
  const std::string& fileName_;
  bool completed_ = false;
};

}  // namespace

bool WriteRows(const std::string& fileName, HistoryRows& rows, const ExportProgress& written) {
  std::ofstream file(fileName, std::ios::binary | std::ios::trunc);
  if (!file) FailAccess(fileName);
  Unfinished unfinished(fileName);
  const std::vector<int> columns = ColumnsOf(rows);
  file << HeaderLine(rows, columns);
  const int count = rows.Count();
  for (int row = 0; file && row < count; ++row) {
    file << RowLine(rows, row, columns);
    if (!written(100.0 * (row + 1) / count)) return false;
  }
  file.close();
  if (!file) FailAccess(fileName);
  unfinished.Complete();
  return true;
}

}  // namespace varek

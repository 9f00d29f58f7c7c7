// The rows that a query found, by their number. Which rows there are was fixed by the query; their
// values are read when they are asked for. The grid and an export read the same rows, each at its
// own place.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/storage/database.h"

namespace varek {

class HistoryRows final {
 public:
  explicit HistoryRows(std::unique_ptr<platform::Recordset> rows);

  int Count() const;
  int ColumnCount() const;
  std::vector<std::string> ColumnNames() const;

  /// The default text of a value; both count from 0. Throws RuntimeError 3021 for a row and 3265
  /// for a column that is not there, 3167 for a row that has been deleted meanwhile, and 3146 when
  /// its whole table has.
  std::string Text(int row, int column);

 private:
  void MoveTo(int row);

  std::unique_ptr<platform::Recordset> rows_;
};

}  // namespace varek

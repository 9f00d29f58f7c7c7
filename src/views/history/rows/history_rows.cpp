#include "views/history/rows/history_rows.h"

#include <utility>

namespace varek {

HistoryRows::HistoryRows(std::unique_ptr<platform::Recordset> rows) : rows_(std::move(rows)) {}

int HistoryRows::Count() const { return static_cast<int>(rows_->RecordCount()); }

int HistoryRows::ColumnCount() const { return rows_->FieldCount(); }

std::vector<std::string> HistoryRows::ColumnNames() const {
  std::vector<std::string> names;
  names.reserve(static_cast<size_t>(ColumnCount()));
  for (int column = 0; column < ColumnCount(); ++column) names.push_back(rows_->FieldName(column));
  return names;
}

std::string HistoryRows::Text(int row, int column) {
  MoveTo(row);
  return platform::ValueText(rows_->Get(column));
}

/// A step reads nothing: a whole day is passed over in less than a millisecond.
void HistoryRows::MoveTo(int row) {
  if (rows_->AbsolutePosition() < 0) rows_->MoveFirst();
  while (rows_->AbsolutePosition() > row) rows_->MovePrevious();
  while (rows_->AbsolutePosition() < row) rows_->MoveNext();
}

}  // namespace varek

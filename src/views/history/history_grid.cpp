#include "views/history/history_grid.h"

#include <utility>

#include "platform/errors/guard.h"
#include "views/history/rows/column_caption.h"
#include "views/kit/looks/shown.h"

namespace varek {

void HistoryGrid::ShowRows(std::shared_ptr<HistoryRows> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  reported_ = false;
  endResetModel();
}

void HistoryGrid::ApplyLanguage() {
  if (rows_) headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

int HistoryGrid::rowCount(const QModelIndex& parent) const {
  return rows_ && !parent.isValid() ? rows_->Count() : 0;
}

int HistoryGrid::columnCount(const QModelIndex& parent) const {
  return rows_ && !parent.isValid() ? rows_->ColumnCount() : 0;
}

QVariant HistoryGrid::data(const QModelIndex& index, int role) const {
  if (role == Qt::TextAlignmentRole) return int{Qt::AlignCenter};
  if (role == Qt::DisplayRole && rows_ && index.isValid()) return CellText(index);
  return {};
}

QVariant HistoryGrid::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return Shown(ColumnCaption(section));
}

/// A row that has been deleted meanwhile stays blank. It is asked for again at every painting; one
/// line in the error list is enough.
QString HistoryGrid::CellText(const QModelIndex& index) const {
  std::string text;
  const auto read = [&] { text = rows_->Text(index.row(), index.column()); };
  if (reported_) {
    platform::IgnoreErrors(read);
  } else {
    reported_ = !platform::Guarded("form2 DBgrid1", read);
  }
  return Shown(text);
}

}  // namespace varek

// The rows of a query as the model behind the result grid. The grid asks for the cells that it
// shows, and only those are read, so that a whole day scrolls like a short list.
#pragma once

#include <QAbstractTableModel>
#include <memory>

#include "views/history/rows/history_rows.h"

namespace varek {

class HistoryGrid final : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void ShowRows(std::shared_ptr<HistoryRows> rows);
  /// The result shown; none before the first query.
  const std::shared_ptr<HistoryRows>& Rows() const { return rows_; }
  /// Column heads in the present language.
  void ApplyLanguage();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString CellText(const QModelIndex& index) const;

  std::shared_ptr<HistoryRows> rows_;
  mutable bool reported_ = false;  ///< that a row of this result could not be read
};

}  // namespace varek

// The query panel: the fields in which the limits of a query are given, with their entry rules, and
// its two buttons. It knows limits; what is asked with them is for the window to do.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "views/history/rows/history_query.h"
#include "views/kit/windows/movable_panel.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace varek {

class QueryPanel final : public MovablePanel {
 public:
  /// `query` runs guarded when the query button is clicked.
  QueryPanel(QWidget* parent, StickyPanels& panels, size_t number, std::function<void()> query);

  /// As they stand in the fields.
  HistoryLimits Limits() const;
  /// Shows the rows of what the unit measures, and takes the size that they need.
  void ShowRows();
  void ApplyLanguage();

 private:
  struct TimeLimit {
    QLabel* label;
    QComboBox* list;
  };
  struct ValueLimits {
    QLabel* label;
    QLineEdit* lower;
    QLineEdit* upper;
    QComboBox* word;  ///< that joins them to what stands before

    std::array<QWidget*, 4> Parts() const;
  };

  void MakeLimits();
  void MakeButtons(std::function<void()> query);
  TimeLimit MakeTime(int row, const std::vector<std::string>& times);
  ValueLimits MakeValue(int row);
  void Clear();

  QGridLayout* grid_ = nullptr;
  TimeLimit from_{};
  TimeLimit to_{};
  std::array<QLabel*, 4> heads_{};  ///< of the value limits, then of their three columns
  std::array<ValueLimits, kMeasureCount> values_{};
  QPushButton* queryButton_ = nullptr;
  QPushButton* clearButton_ = nullptr;
};

}  // namespace varek

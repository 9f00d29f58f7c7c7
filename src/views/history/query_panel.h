// The query panel: the fields in which the limits of a query are given, with their entry rules, and
// its two buttons. It knows limits; what is asked with them is for the window to do.
#pragma once

#include <array>
#include <functional>

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

  QLineEdit& Limit(size_t field) { return *Text1.at(field); }
  QComboBox& Time(size_t which) { return *Combo1.at(which); }
  QComboBox& JoiningWord(size_t field) { return *Combo2.at(field); }
  QPushButton& QueryButton() { return *Command4; }
  QPushButton& ClearButton() { return *Command8; }

 private:
  void MakeTimes();
  void MakeLimits();
  void MakeButtons(std::function<void()> query);
  void Command8_Click();

  QGridLayout* grid_ = nullptr;
  std::array<QLabel*, 2> timeLabels_{};
  std::array<QLabel*, 4> heads_{};  ///< of the value limits, then of their three columns
  std::array<QLabel*, kValueFields> fieldLabels_{};
  std::array<QComboBox*, 2> Combo1{};
  std::array<QLineEdit*, 2 * kValueFields> Text1{};
  std::array<QComboBox*, kValueFields> Combo2{};
  QPushButton* Command4 = nullptr;
  QPushButton* Command8 = nullptr;
};

}  // namespace varek

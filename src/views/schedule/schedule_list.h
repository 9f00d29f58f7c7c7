// The detail panel of the schedule calendar: the entries of the selected day, one of which can be
// edited or deleted. It shows; what the buttons do is for the window.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "scheduler/schedule_model.h"
#include "views/kit/windows/movable_panel.h"

class QPushButton;
class QTableWidget;

namespace varek {

class ScheduleList final : public MovablePanel {
 public:
  /// Run guarded when their buttons are clicked.
  struct Handlers {
    std::function<void()> edit;
    std::function<void()> remove;
    std::function<void()> close;
  };

  ScheduleList(QWidget* parent, StickyPanels& panels, size_t number, Handlers handlers);

  /// Lists a day's entries but for the holes; none is selected.
  void ShowEntries(const std::vector<ScheduleEntry>& entries);
  /// The number of the selected entry; none without a selection.
  std::optional<int> SelectedNumber() const;
  /// "hh:mm" of the selected entry; empty without a selection.
  std::string SelectedTime() const;
  /// The captions; what is listed keeps its words until it is listed anew.
  void ApplyLanguage();

 private:
  void MakeGrid();
  void AddRow(const ScheduleEntry& entry);
  QString SelectedText(int column) const;

  QTableWidget* table_ = nullptr;
  QPushButton* edit_ = nullptr;
  QPushButton* delete_ = nullptr;
  QPushButton* close_ = nullptr;
};

}  // namespace varek

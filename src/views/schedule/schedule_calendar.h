// The schedule calendar: a month in which every day carries small pictures of the actions planned
// for it, the list of the selected day's entries, the dialog for a new or changed entry, and the
// choice of how much of a repeating entry is deleted. The rules are the schedule's; this window
// shows it and hands on what a person asks for.
#pragma once

#include <QPixmap>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/forms.h"
#include "scheduler/schedule_edit.h"
#include "views/kit/calendar/month_window.h"

class QLabel;
class QPushButton;

namespace varek {

class DeletePanel;
class MovablePanel;
class PictureView;
class ScheduleDialog;
class ScheduleList;

/// The window of the schedule.
class Form4 final : public MonthWindow {
 public:
  static constexpr int kNumber = 4;
  /// Actions that have a picture: all but the cancel mark.
  static constexpr size_t kPictures = kMarkAction;

  /// Loads the present month and selects today. A missing picture throws RuntimeError 53; a table
  /// that can't be read leaves the month empty.
  Form4();
  ~Form4() override;

  void ApplyLanguage();

  /// Rebuilds the month table and repaints the grid.
  void renewdatetable();
  /// Rebuilds the month table only. A day with more entries than it takes ends it with a message.
  void reloadmon();
  /// Repaints the grid with the table as it stands.
  void reNewTable();

 private:
  void ShowMonth() override;
  void ClickDay(int day) override;
  std::vector<const QPixmap*> PicturesOf(int day) const override;

  void LoadActionPictures();
  void MakeLegend();
  void MakePanels();
  void LayoutControls();
  SelectedDay Selected() const { return {selected_.year, selected_.month, selected_.day}; }
  void ShowAfterChange();
  void ShowPanel(MovablePanel& panel);
  void HidePanel(MovablePanel& panel);
  void TitleDialog();
  void CentreDeletePanel();

  void StartNewEntry();
  void SaveEntry();
  void HideDialog();
  void CloseList();
  void EditSelected();
  void DeleteSelected();
  void DeleteBy(char choice);

  std::array<QPixmap, kPictures> actionPictures_;  ///< by place in kActionLetters
  MonthTable month_;
  std::optional<int> edited_;  ///< the entry on which the dialog was opened
  int deleting_ = 0;           ///< the entry that waits in the delete panel
  SelectedDay deletingDay_;    ///< the day from whose list it was taken
  std::string deletingTime_;

  QPushButton* newEntry_ = nullptr;
  QWidget* legend_ = nullptr;
  std::array<PictureView*, kPictures> legendPictures_{};
  QLabel* legendText_ = nullptr;
  ScheduleList* list_ = nullptr;
  ScheduleDialog* dialog_ = nullptr;
  DeletePanel* deletePanel_ = nullptr;
};

/// The one instance.
FormSlot<Form4>& ScheduleCalendar();

/// Shows the schedule calendar, or raises it.
void ShowScheduleCalendar();

}  // namespace varek

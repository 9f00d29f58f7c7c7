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
#include "views/kit/windows/design_layout.h"
#include "views/kit/windows/sticky_panels.h"
#include "views/kit/windows/view_window.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace varek {

class DeletePanel;
class MonthGrid;
class MovablePanel;
class PictureView;
class ScheduleDialog;
class ScheduleList;

class Form4 final : public ViewWindow {
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

  const SelectedDay& Selected() const { return selected_; }
  MonthGrid& Month() { return *Picture1; }
  ScheduleList& Entries() { return *Frame1; }
  ScheduleDialog& Dialog() { return *Frame2; }
  DeletePanel& Deleting() { return *Frame4; }

 protected:
  void Form_Resize() override;

 private:
  void LoadActionPictures();
  void MakeChoosers();
  void MakeLegend();
  void MakeMonth();
  void MakePanels();
  void LayoutControls();
  void SelectToday();
  void ReWindow();

  std::vector<const QPixmap*> PicturesOf(int day) const;
  void ShowSelectedMonth();
  void ShowAfterChange();
  void ShowPanel(MovablePanel& panel);
  void HidePanel(MovablePanel& panel);
  void TitleDialog();
  void CentreDeletePanel();

  void Combo1_Click(int index);
  void Combo2_Click(int index);
  void Picture1_Click(int day);
  void Today_Click();
  void NewEntry_Click();
  void Command1_Click();
  void Command2_Click();
  void Command3_Click();
  void Command4_Click();
  void Command5_Click();
  void Command6_Click(char choice);

  std::array<QPixmap, kPictures> ActionPicture;  ///< by place in kActionLetters
  MonthTable month_;
  SelectedDay selected_;
  std::optional<int> edited_;  ///< the entry on which the dialog was opened
  int deleting_ = 0;           ///< the entry that waits in the delete panel
  SelectedDay deletingDay_;    ///< the day from whose list it was taken
  std::string deletingTime_;
  DesignLayout layout_;
  StickyPanels panels_;

  QLabel* Label1 = nullptr;
  QComboBox* Combo1 = nullptr;
  QComboBox* Combo2 = nullptr;
  QPushButton* today_ = nullptr;
  QPushButton* newEntry_ = nullptr;
  QWidget* legend_ = nullptr;
  std::array<PictureView*, kPictures> Picture5{};
  QLabel* Label6 = nullptr;
  MonthGrid* Picture1 = nullptr;
  ScheduleList* Frame1 = nullptr;
  ScheduleDialog* Frame2 = nullptr;
  DeletePanel* Frame4 = nullptr;
};

/// The one instance.
FormSlot<Form4>& ScheduleCalendar();

/// Shows the schedule calendar, or raises it.
void ShowScheduleCalendar();

}  // namespace varek

// The event log: a month calendar in which every day carries small pictures of the kinds of event
// that happened on it. A click on a day opens the list of its events, of the kinds that are
// checked. It reads the event file and writes nothing.
#pragma once

#include <QPixmap>
#include <array>
#include <vector>

#include "core/data_center.h"
#include "core/forms.h"
#include "views/event_log/event_month.h"
#include "views/kit/windows/design_layout.h"
#include "views/kit/windows/sticky_panels.h"
#include "views/kit/windows/view_window.h"

class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QPushButton;
class QTableWidget;

namespace varek {

class Bubble;
class MonthGrid;
class MovablePanel;
class PictureButton;

/// Its controls are found by their names as object names.
class Form6 final : public ViewWindow {
 public:
  static constexpr int kNumber = 6;

  /// Loads all pictures and the present month; a missing picture throws RuntimeError 53.
  Form6();
  ~Form6() override;

  void ApplyLanguage();

 protected:
  void Form_Resize() override;

 private:
  void LoadEventPictures();
  void MakeChoosers();
  void MakeMonth();
  void MakeTypes();
  void MakeDayList();
  void MakeDayClose();
  void LayoutControls();
  QPushButton* MakeButton(QWidget* parent, const char* name, void (Form6::*act)());

  void SelectToday();
  void ShowMonth();
  void renewdatetable();
  void FillDayList();
  std::vector<const QPixmap*> PicturesOf(int day) const;
  EventKinds CheckedKinds() const;
  void CheckAll(bool checked);
  void ReWindow();

  void Today_Click();
  void Combo1_Click(int index);
  void Combo2_Click(int index);
  void Picture1_Click(int day);
  void Picture1_MouseMove(int day, int picture);
  void Command1_Click();
  void Command2_Click();
  void Command3_Click();
  void Command4_Click();

  std::array<QPixmap, kEventCount> EventPicture;  ///< by event number less one
  EventMonth month_;
  int shownYear_ = 0;
  int shownMonth_ = 0;   ///< 1 to 12
  int selectedDay_ = 0;  ///< 1 to 31
  DesignLayout layout_;
  StickyPanels panels_;  ///< the day list alone

  QLabel* Label1 = nullptr;
  QComboBox* Combo1 = nullptr;
  QComboBox* Combo2 = nullptr;
  QPushButton* today_ = nullptr;
  MonthGrid* Picture1 = nullptr;
  QFrame* Frame1 = nullptr;
  QLabel* Label2 = nullptr;
  std::array<QCheckBox*, kEventCount> Check1{};
  QPushButton* Command2 = nullptr;
  QPushButton* Command3 = nullptr;
  QPushButton* Command4 = nullptr;
  MovablePanel* Frame2 = nullptr;
  PictureButton* Command1 = nullptr;
  QTableWidget* MSFlexGrid1 = nullptr;
  QLabel* Label3 = nullptr;
  Bubble* Picture2 = nullptr;
};

/// The one instance.
FormSlot<Form6>& EventLog();

/// Shows the event log, or raises it.
void ShowEventLog();

}  // namespace varek

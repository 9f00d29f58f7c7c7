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

/// The event log's window.
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

  void SelectToday();
  void ShowMonth();
  void renewdatetable();
  void FillDayList();
  std::vector<const QPixmap*> PicturesOf(int day) const;
  EventKinds CheckedKinds() const;
  void CheckAll(bool checked);
  void ReWindow();

  void ShowToday();
  void YearChosen(int index);
  void MonthChosen(int index);
  void DayClicked(int day);
  void PictureHovered(int day, int picture);
  void CloseDayList();

  std::array<QPixmap, kEventCount> eventPictures_;  ///< by event number less one
  EventMonth events_;
  int shownYear_ = 0;
  int shownMonth_ = 0;   ///< 1 to 12
  int selectedDay_ = 0;  ///< 1 to 31
  DesignLayout layout_;
  StickyPanels panels_;  ///< the day list alone

  QLabel* monthTitle_ = nullptr;
  QComboBox* years_ = nullptr;
  QComboBox* months_ = nullptr;
  QPushButton* todayButton_ = nullptr;
  MonthGrid* month_ = nullptr;
  QFrame* typesFrame_ = nullptr;
  QLabel* typesHead_ = nullptr;
  std::array<QCheckBox*, kEventCount> typeBoxes_{};
  QPushButton* refreshButton_ = nullptr;
  QPushButton* selectAllButton_ = nullptr;
  QPushButton* selectNoneButton_ = nullptr;
  MovablePanel* dayPanel_ = nullptr;
  PictureButton* dayClose_ = nullptr;
  QTableWidget* dayEvents_ = nullptr;
  QLabel* dayCount_ = nullptr;
  Bubble* bubble_ = nullptr;
};

/// The one instance.
FormSlot<Form6>& EventLog();

/// Shows the event log, or raises it.
void ShowEventLog();

}  // namespace varek

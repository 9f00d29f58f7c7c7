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
#include "views/kit/calendar/month_window.h"

class QCheckBox;
class QFrame;
class QLabel;
class QPushButton;
class QTableWidget;

namespace varek {

class Bubble;
class MovablePanel;
class PictureButton;

/// The event log's window.
class Form6 final : public MonthWindow {
 public:
  static constexpr int kNumber = 6;

  /// Loads all pictures and the present month; a missing picture throws RuntimeError 53.
  Form6();
  ~Form6() override;

  void ApplyLanguage();

 private:
  void ShowMonth() override;
  void ClickDay(int day) override;
  std::vector<const QPixmap*> PicturesOf(int day) const override;

  void LoadEventPictures();
  void MakeTypes();
  void MakeDayList();
  void MakeDayClose();
  void LayoutControls();

  void renewdatetable();
  void FillDayList();
  EventKinds CheckedKinds() const;
  void CheckAll(bool checked);

  void PictureHovered(int day, int picture);
  void CloseDayList();

  std::array<QPixmap, kEventCount> eventPictures_;  ///< by event number less one
  EventMonth events_;

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

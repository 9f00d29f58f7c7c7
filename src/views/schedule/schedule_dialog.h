// The dialog of the schedule calendar: the fields of a new or changed entry. It holds them; what
// they mean, and saving, are the schedule's.
#pragma once

#include <array>
#include <functional>

#include "scheduler/schedule_edit.h"
#include "views/kit/windows/movable_panel.h"

class QComboBox;
class QGridLayout;
class QPushButton;

namespace varek {

class TimeBox;

class ScheduleDialog final : public MovablePanel {
 public:
  /// Run guarded when their buttons are clicked.
  struct Handlers {
    std::function<void()> save;
    std::function<void()> cancel;
  };

  ScheduleDialog(QWidget* parent, StickyPanels& panels, size_t number, Handlers handlers);

  ScheduleForm Fields() const;
  void SetFields(const ScheduleForm& form);
  /// Its captions; the panel takes the size that they need.
  void ApplyLanguage();

 private:
  static constexpr size_t kRows = 4;

  void MakeFields();
  void MakeButtons(Handlers handlers);
  void FollowAction();

  QGridLayout* grid_ = nullptr;
  std::array<QLabel*, kRows> captions_{};
  TimeBox* time_ = nullptr;
  QComboBox* actions_ = nullptr;      ///< actions
  QComboBox* recurrences_ = nullptr;  ///< recurrence
  TimeBox* restartTime_ = nullptr;    ///< time of the restart
  QComboBox* restartDays_ = nullptr;  ///< its day
  QPushButton* save_ = nullptr;
  QPushButton* cancel_ = nullptr;
};

}  // namespace varek

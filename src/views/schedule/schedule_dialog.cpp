#include "views/schedule/schedule_dialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <array>
#include <utility>

#include "platform/errors/guard.h"
#include "texts/language.h"
#include "views/kit/controls/choice_list.h"
#include "views/kit/controls/push_button.h"
#include "views/kit/looks/shown.h"
#include "views/schedule/time_box.h"

namespace varek {

namespace {

constexpr int kMargin = 8;
constexpr int kGap = 6;
constexpr int kTimeWidth = 64;

constexpr std::array<size_t, 4> kRowTexts{texts::kScheduleTime, texts::kScheduleAction,
                                          texts::kScheduleRepeat, texts::kScheduleRestartAt};

constexpr int kActions = int{kMarkAction};
constexpr int kRecurrences = 4;
constexpr int kRestartDays = 7;

QComboBox* MakeList(QWidget* parent, int items) {
  auto* list = new ChoiceList(parent);
  for (int i = 0; i < items; ++i) list->addItem(QString());
  return list;
}

/// Errors are reported under `name`.
TimeBox* MakeTimeBox(QWidget* parent, const char* name) {
  auto* box = new TimeBox(parent, name);
  box->setFixedWidth(kTimeWidth);
  return box;
}

}  // namespace

ScheduleDialog::ScheduleDialog(QWidget* parent, StickyPanels& panels, size_t number,
                               Handlers handlers)
    : MovablePanel(parent, "form4 Frame2", panels, number), grid_(new QGridLayout(this)) {
  grid_->setContentsMargins(kMargin, kTitleHeight, kMargin, kMargin);
  grid_->setSpacing(kGap);
  grid_->setColumnStretch(2, 1);
  MakeFields();
  MakeButtons(std::move(handlers));
  FollowAction();
}

void ScheduleDialog::MakeFields() {
  for (size_t row = 0; row < kRows; ++row)
    grid_->addWidget(captions_[row] = new QLabel(this), static_cast<int>(row), 0);
  grid_->addWidget(time_ = MakeTimeBox(this, "form4 Text1"), 0, 1);
  grid_->addWidget(actions_ = MakeList(this, kActions), 1, 1, 1, 2);
  grid_->addWidget(recurrences_ = MakeList(this, kRecurrences), 2, 1, 1, 2);
  grid_->addWidget(restartTime_ = MakeTimeBox(this, "form4 Text2"), 3, 1);
  grid_->addWidget(restartDays_ = MakeList(this, kRestartDays), 3, 2);
  connect(actions_, &QComboBox::currentIndexChanged, this,
          [this] { platform::Guarded("form4 Combo7_Click", [this] { FollowAction(); }); });
}

void ScheduleDialog::MakeButtons(Handlers handlers) {
  save_ = MakeButton(this, "form4 Command1_Click", std::move(handlers.save));
  cancel_ = MakeButton(this, "form4 Command2_Click", std::move(handlers.cancel));
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(save_);
  row->addWidget(cancel_);
  grid_->addLayout(row, int{kRows}, 0, 1, 3);
}

ScheduleForm ScheduleDialog::Fields() const {
  return {time_->Time(), actions_->currentIndex(), recurrences_->currentIndex(),
          restartDays_->currentIndex(), restartTime_->Time()};
}

void ScheduleDialog::SetFields(const ScheduleForm& form) {
  time_->SetTime(form.time);
  actions_->setCurrentIndex(form.action);
  recurrences_->setCurrentIndex(form.recurrence);
  restartDays_->setCurrentIndex(form.restartDays);
  restartTime_->SetTime(form.restartTime);
}

/// Only the two actions with a restart take its time and day.
void ScheduleDialog::FollowAction() {
  const char letter = kActionLetters[static_cast<size_t>(actions_->currentIndex())];
  const bool restarts = letter == 'R' || letter == 'B';
  restartDays_->setEnabled(restarts);
  restartTime_->setEnabled(restarts);
}

void ScheduleDialog::ApplyLanguage() {
  for (size_t row = 0; row < kRows; ++row) captions_[row]->setText(Shown(kRowTexts[row]));
  for (int i = 0; i < kActions; ++i)
    actions_->setItemText(i, Shown(ActionName[static_cast<size_t>(i)]));
  for (int i = 0; i < kRecurrences; ++i)
    recurrences_->setItemText(i, Shown(texts::kRepeatOnce + static_cast<size_t>(i)));
  for (int i = 0; i < kRestartDays; ++i)
    restartDays_->setItemText(i, Shown(texts::kRestartSameDay + static_cast<size_t>(i)).trimmed());
  save_->setText(Shown(texts::kScheduleSave));
  cancel_->setText(Shown(texts::kCancel));
  grid_->activate();  // The row of buttons within it too.
  adjustSize();
  TellPanels();
}

}  // namespace varek

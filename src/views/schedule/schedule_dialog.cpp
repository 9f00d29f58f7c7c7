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
#include "views/schedule/schedule_controls.h"
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

QComboBox* MakeList(QWidget* parent, const char* name, int items) {
  auto* list = new ChoiceList(parent);
  list->setObjectName(QString::fromLatin1(name));
  for (int i = 0; i < items; ++i) list->addItem(QString());
  return list;
}

TimeBox* MakeTimeBox(QWidget* parent, const char* name) {
  auto* box = new TimeBox(parent, std::string("form4 ") + name);
  box->setObjectName(QString::fromLatin1(name));
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
  Combo7_Click();
}

void ScheduleDialog::MakeFields() {
  for (size_t row = 0; row < kRows; ++row)
    grid_->addWidget(captions_[row] = new QLabel(this), static_cast<int>(row), 0);
  grid_->addWidget(Text1 = MakeTimeBox(this, "Text1"), 0, 1);
  grid_->addWidget(Combo7 = MakeList(this, "Combo7", kActions), 1, 1, 1, 2);
  grid_->addWidget(Combo3 = MakeList(this, "Combo3", kRecurrences), 2, 1, 1, 2);
  grid_->addWidget(Text2 = MakeTimeBox(this, "Text2"), 3, 1);
  grid_->addWidget(Combo4 = MakeList(this, "Combo4", kRestartDays), 3, 2);
  connect(Combo7, &QComboBox::currentIndexChanged, this,
          [this] { platform::Guarded("form4 Combo7_Click", [this] { Combo7_Click(); }); });
}

void ScheduleDialog::MakeButtons(Handlers handlers) {
  Command1 = MakeScheduleButton(this, "Command1", std::move(handlers.save));
  Command2 = MakeScheduleButton(this, "Command2", std::move(handlers.cancel));
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(Command1);
  row->addWidget(Command2);
  grid_->addLayout(row, int{kRows}, 0, 1, 3);
}

ScheduleForm ScheduleDialog::Fields() const {
  return {Text1->Time(), Combo7->currentIndex(), Combo3->currentIndex(), Combo4->currentIndex(),
          Text2->Time()};
}

void ScheduleDialog::SetFields(const ScheduleForm& form) {
  Text1->SetTime(form.time);
  Combo7->setCurrentIndex(form.action);
  Combo3->setCurrentIndex(form.recurrence);
  Combo4->setCurrentIndex(form.restartDays);
  Text2->SetTime(form.restartTime);
}

/// Only the two actions with a restart take its time and day.
void ScheduleDialog::Combo7_Click() {
  const char letter = kActionLetters[static_cast<size_t>(Combo7->currentIndex())];
  const bool restarts = letter == 'R' || letter == 'B';
  Combo4->setEnabled(restarts);
  Text2->setEnabled(restarts);
}

void ScheduleDialog::ApplyLanguage() {
  for (size_t row = 0; row < kRows; ++row) captions_[row]->setText(ScheduleText(kRowTexts[row]));
  for (int i = 0; i < kActions; ++i)
    Combo7->setItemText(i, QString::fromStdString(ActionName[static_cast<size_t>(i)]));
  for (int i = 0; i < kRecurrences; ++i)
    Combo3->setItemText(i, ScheduleText(texts::kRepeatOnce + static_cast<size_t>(i)));
  for (int i = 0; i < kRestartDays; ++i)
    Combo4->setItemText(i, ScheduleText(texts::kRestartSameDay + static_cast<size_t>(i)).trimmed());
  Command1->setText(ScheduleText(texts::kScheduleSave));
  Command2->setText(ScheduleText(texts::kCancel));
  grid_->activate();  // The row of buttons within it too.
  adjustSize();
  TellPanels();
}

}  // namespace varek

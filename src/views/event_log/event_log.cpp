#include "views/event_log/event_log.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <string>

#include "drawing/palette.h"
#include "views/kit/calendar/month_grid.h"
#include "views/kit/controls/bubble.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/controls/push_button.h"
#include "views/kit/looks/pictures.h"
#include "views/kit/looks/shown.h"
#include "views/kit/looks/style.h"
#include "views/kit/windows/movable_panel.h"

namespace varek {

namespace {

// Places are those in a client area of the start size.
constexpr QSize kStartSize{900, 580};
constexpr QSize kLeastSize{790, 490};
constexpr MonthPlaces kPlaces{.title{12, 10, 216, 28},
                              .years{236, 10, 140, 28},
                              .months{384, 10, 120, 28},
                              .today{512, 10, 108, 28},
                              .days{12, 48, 608, 520}};
constexpr QRect kTypesPlace{632, 10, 256, 558};
/// The day list keeps its size in a window of any size.
constexpr QRect kListPlace{150, 262, 372, 294};

constexpr int kCloseSize = 20;
constexpr int kTimeWidth = 150;
constexpr int kRowHeight = 22;

constexpr std::array<size_t, 2> kColumnHeads{texts::kEventLogTime, texts::kEventLogEvent};

constexpr DayColors kPlainDay{{255, 255, 255}, palette::kFace};
constexpr DayColors kToday{{255, 255, 255}, {0, 110, 200}};
constexpr DayColors kSelectedDay{{111, 127, 255}, {255, 255, 255}};

Panel PanelOf(const QRect& place) {
  return {place.x(), place.y(), place.width(), place.height(), true};
}

}  // namespace

FormSlot<Form6>& EventLog() {
  static FormSlot<Form6> slot(Form6::kNumber);
  return slot;
}

void ShowEventLog() { EventLog().Get().ShowAndRaise(); }

Form6::Form6()
    : MonthWindow(kNumber, kStartSize, kLeastSize, {PanelOf(kListPlace)}, WhenResized::StayInside) {
  LoadEventPictures();
  MakeDays({kPlainDay, kToday, kSelectedDay});
  days_->OnHover([this](int day, int picture) { PictureHovered(day, picture); });
  MakeTypes();
  MakeDayList();
  bubble_ = new Bubble(Client());
  SelectToday();
  ApplyLanguage();
  ShowMonth();
  LayoutControls();
  days_->setFocus();
}

/// The controls outlive this part of the window, and the toolkit lets the pointer leave them then.
Form6::~Form6() { days_->OnHover({}); }

void Form6::LoadEventPictures() {
  for (size_t i = 0; i < eventPictures_.size(); ++i)
    eventPictures_[i] = LoadPicture("EventPic" + std::to_string(i + 1) + ".jpg");
}

/// The boxes are the key to the pictures as well.
void Form6::MakeTypes() {
  typesFrame_ = new QFrame(Client());
  auto* grid = new QGridLayout(typesFrame_);
  typesHead_ = new QLabel(typesFrame_);
  grid->addWidget(typesHead_, 0, 0, 1, 2);
  for (int i = 0; i < kEventCount; ++i) {
    auto* box = new QCheckBox(typesFrame_);
    box->setIcon(eventPictures_[static_cast<size_t>(i)]);
    box->setChecked(true);
    grid->addWidget(box, 1 + i, 0, 1, 2);
    typeBoxes_[static_cast<size_t>(i)] = box;
  }
  selectAllButton_ = MakeButton(typesFrame_, "form6 Command3_Click", [this] { CheckAll(true); });
  selectNoneButton_ = MakeButton(typesFrame_, "form6 Command4_Click", [this] { CheckAll(false); });
  refreshButton_ = MakeButton(typesFrame_, "form6 Command2_Click", [this] { FillDayList(); });
  grid->addWidget(selectAllButton_, 1 + kEventCount, 0);
  grid->addWidget(selectNoneButton_, 1 + kEventCount, 1);
  grid->addWidget(refreshButton_, 2 + kEventCount, 0, 1, 2);
  grid->setRowStretch(3 + kEventCount, 1);
}

void Form6::MakeDayList() {
  dayPanel_ = new MovablePanel(Client(), "form6 Frame2", panels_, 0);
  dayPanel_->OnPutAway([this] { CloseDayList(); });
  AddPanel(*dayPanel_);
  dayPanel_->setObjectName(QString());  // It keeps a frame of its own, not the style's.
  dayPanel_->setFrameShape(QFrame::Box);
  dayPanel_->setAutoFillBackground(true);
  dayPanel_->setGeometry(kListPlace);
  MakeDayClose();
  dayEvents_ = new QTableWidget(0, static_cast<int>(kColumnHeads.size()), dayPanel_);
  dayEvents_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  dayEvents_->setSelectionBehavior(QAbstractItemView::SelectRows);
  dayEvents_->setTabKeyNavigation(false);
  dayEvents_->verticalHeader()->hide();
  dayEvents_->verticalHeader()->setDefaultSectionSize(RowHeight(*dayEvents_, kRowHeight));
  dayEvents_->horizontalHeader()->setStretchLastSection(true);
  dayEvents_->horizontalHeader()->setHighlightSections(false);
  dayEvents_->setColumnWidth(0, kTimeWidth);
  dayCount_ = new QLabel(dayPanel_);
  auto* column = new QVBoxLayout(dayPanel_);
  column->setContentsMargins(8, MovablePanel::kTitleHeight, 8, 6);
  column->addWidget(dayEvents_);
  column->addWidget(dayCount_);
  dayPanel_->hide();
}

void Form6::MakeDayClose() {
  dayClose_ = new PictureButton(dayPanel_, QStringLiteral("close"), "form6 Command1_Click",
                                [this] { CloseDayList(); });
  const int margin = (MovablePanel::kTitleHeight - kCloseSize) / 2;
  dayClose_->setGeometry(dayPanel_->width() - kCloseSize - margin, margin, kCloseSize, kCloseSize);
}

void Form6::ApplyLanguage() {
  MonthWindow::ApplyLanguage();
  SetCaption(Shown(texts::kEventLogCaption));
  typesHead_->setText(Shown(texts::kEventLogTypes));
  for (size_t i = 0; i < typeBoxes_.size(); ++i) typeBoxes_[i]->setText(Shown(EventText[i]));
  dayClose_->setToolTip(Shown(texts::kEventLogClose));
  dayClose_->setAccessibleName(Shown(texts::kEventLogClose));
  refreshButton_->setText(Shown(texts::kEventLogRefresh));
  refreshButton_->setToolTip(Shown(texts::kEventLogRefreshTip));
  selectAllButton_->setText(Shown(texts::kEventLogSelectAll));
  selectNoneButton_->setText(Shown(texts::kEventLogSelectNone));
  dayEvents_->setHorizontalHeaderLabels({Shown(kColumnHeads[0]), Shown(kColumnHeads[1])});
  dayEvents_->setAccessibleName(Shown(texts::kEventLogDayList));
  renewdatetable();
  if (!dayPanel_->isHidden()) FillDayList();
  Form_Resize();
}

void Form6::LayoutControls() {
  typesFrame_->setGeometry(kTypesPlace);
  LayoutMonth(kPlaces, {typesFrame_});
  Form_Resize();
}

/// The list of a day of the former month goes with it.
void Form6::ShowMonth() {
  dayPanel_->hide();
  if (!events_.reloadmon(selected_.year, selected_.month)) Tell("DATA EVENT ERROR");
  renewdatetable();
}

std::vector<const QPixmap*> Form6::PicturesOf(int day) const {
  std::vector<const QPixmap*> pictures;
  for (const size_t kind : events_.KindsOf(day)) pictures.push_back(&eventPictures_[kind]);
  return pictures;
}

void Form6::renewdatetable() { RepaintMonth(); }

void Form6::ClickDay(int day) {
  selected_.day = day;
  renewdatetable();
  dayPanel_->SetTitle(QStringLiteral("%1/%2/%3").arg(selected_.year).arg(selected_.month).arg(day));
  FillDayList();
  dayPanel_->show();
  dayPanel_->raise();
  ReWindow();
}

EventKinds Form6::CheckedKinds() const {
  EventKinds kinds;
  for (size_t i = 0; i < typeBoxes_.size(); ++i) kinds[i] = typeBoxes_[i]->isChecked();
  return kinds;
}

void Form6::FillDayList() {
  const auto events = events_.Listed(selected_.day, CheckedKinds());
  dayEvents_->setRowCount(0);  // The rows of another day leave neither selection nor position.
  dayEvents_->setRowCount(static_cast<int>(events.size()));
  for (int row = 0; row < dayEvents_->rowCount(); ++row) {
    const LoggedEvent& event = *events[static_cast<size_t>(row)];
    const std::string& words = EventText[static_cast<size_t>(event.type) - 1];
    dayEvents_->setItem(row, 0, new QTableWidgetItem(Shown(event.time)));
    dayEvents_->setItem(row, 1, new QTableWidgetItem(Shown(words)));
  }
  const bool empty = events_.CountOf(selected_.day) == 0;
  dayCount_->setText(
      empty ? Shown(texts::kEventLogNoEvents)
            : QStringLiteral("%1: %2").arg(Shown(texts::kEventLogCount)).arg(events.size()));
}

void Form6::PictureHovered(int day, int picture) {
  if (picture < 0) return bubble_->hide();
  const auto index = static_cast<size_t>(picture);
  const QPoint corner = days_->PictureRects(day).at(index).bottomRight();
  bubble_->ShowText(EventText.at(events_.KindsOf(day).at(index)),
                    days_->mapToParent(corner + QPoint(1, 1)));
}

/// The keyboard goes on in the month, and not in a chooser that the next key would turn.
void Form6::CloseDayList() {
  dayPanel_->hide();
  days_->setFocus();
}

void Form6::CheckAll(bool checked) {
  for (QCheckBox* box : typeBoxes_) box->setChecked(checked);
  FillDayList();
}

}  // namespace varek

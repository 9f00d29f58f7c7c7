#include "views/event_log/event_log.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <string>

#include "drawing/palette.h"
#include "platform/errors/guard.h"
#include "platform/time/calendar.h"
#include "platform/time/clock.h"
#include "texts/language.h"
#include "views/kit/calendar/month_choosers.h"
#include "views/kit/calendar/month_grid.h"
#include "views/kit/controls/bubble.h"
#include "views/kit/controls/choice_list.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/controls/pictures.h"
#include "views/kit/controls/style.h"
#include "views/kit/windows/movable_panel.h"

namespace varek {

namespace {

// Places are those in a client area of the start size.
constexpr QSize kStartSize{900, 580};
constexpr QSize kLeastSize{790, 490};
constexpr QRect kHeaderPlace{12, 10, 216, 28};
constexpr QRect kYearPlace{236, 10, 140, 28};
constexpr QRect kMonthPlace{384, 10, 120, 28};
constexpr QRect kTodayPlace{512, 10, 108, 28};
constexpr QRect kGridPlace{12, 48, 608, 520};
constexpr QRect kTypesPlace{632, 10, 256, 558};
/// The day list keeps its size in a window of any size.
constexpr QRect kListPlace{150, 262, 372, 294};

constexpr int kHeaderSize = 18;   ///< pixels, of its letters
constexpr int kTodayHeight = 28;  ///< in the lowest window too: Chinese letters are high
constexpr int kCloseSize = 20;
constexpr int kTimeWidth = 150;
constexpr int kRowHeight = 22;

constexpr std::array<size_t, 2> kColumnHeads{texts::kEventLogTime, texts::kEventLogEvent};

constexpr DayColors kPlainDay{{255, 255, 255}, palette::kFace};
constexpr DayColors kToday{{255, 255, 255}, {0, 110, 200}};
constexpr DayColors kSelectedDay{{111, 127, 255}, {255, 255, 255}};

QString Text(size_t number) { return QString::fromStdString(LangText[number]); }

template <typename Control>
Control* Named(Control* control, const char* name) {
  control->setObjectName(QString::fromLatin1(name));
  return control;
}

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
    : ViewWindow(kNumber, kStartSize, kLeastSize),
      panels_({PanelOf(kListPlace)}, WhenResized::StayInside) {
  LoadEventPictures();
  MakeChoosers();
  MakeMonth();
  MakeTypes();
  MakeDayList();
  Picture2 = Named(new Bubble(Client()), "Picture2");
  SelectToday();
  ApplyLanguage();
  DataCenter.FormOpen[kNumber] = kSet;
  ShowMonth();
  LayoutControls();
  Picture1->setFocus();
}

/// The controls outlive this part of the window, and the toolkit lets the pointer leave them then.
Form6::~Form6() {
  Picture1->OnHover({});
  DataCenter.FormOpen[kNumber] = kClear;
}

void Form6::LoadEventPictures() {
  for (size_t i = 0; i < EventPicture.size(); ++i)
    EventPicture[i] = LoadPicture("EventPic" + std::to_string(i + 1) + ".jpg");
}

void Form6::MakeChoosers() {
  Label1 = Named(new QLabel(Client()), "Label1");
  Label1->setStyleSheet(QStringLiteral("font-size: %1px; font-weight: bold;").arg(kHeaderSize));
  Combo1 = Named(new ChoiceList(Client()), "Combo1");
  Combo2 = Named(new ChoiceList(Client()), "Combo2");
  FillMonthChoosers(*Combo1, *Combo2);
  connect(Combo1, &QComboBox::currentIndexChanged, this, [this](int index) {
    platform::Guarded("form6 Combo1_Click", [this, index] { Combo1_Click(index); });
  });
  connect(Combo2, &QComboBox::currentIndexChanged, this, [this](int index) {
    platform::Guarded("form6 Combo2_Click", [this, index] { Combo2_Click(index); });
  });
  today_ = MakeButton(Client(), "Today", &Form6::Today_Click);
  today_->setMinimumHeight(kTodayHeight);
}

void Form6::MakeMonth() {
  Picture1 = Named(new MonthGrid(Client(), "form6 Picture1", {kPlainDay, kToday, kSelectedDay}),
                   "Picture1");
  Picture1->OnClick([this](int day) { Picture1_Click(day); });
  Picture1->OnHover([this](int day, int picture) { Picture1_MouseMove(day, picture); });
}

QPushButton* Form6::MakeButton(QWidget* parent, const char* name, void (Form6::*act)()) {
  auto* button = Named(new QPushButton(parent), name);
  const std::string place = std::string("form6 ") + name + "_Click";
  connect(button, &QPushButton::clicked, this,
          [this, act, place] { platform::Guarded(place, [this, act] { (this->*act)(); }); });
  return button;
}

/// The boxes are the key to the pictures as well.
void Form6::MakeTypes() {
  Frame1 = Named(new QFrame(Client()), "Frame1");
  auto* grid = new QGridLayout(Frame1);
  Label2 = new QLabel(Frame1);
  grid->addWidget(Label2, 0, 0, 1, 2);
  for (int i = 0; i < kEventCount; ++i) {
    auto* box = Named(new QCheckBox(Frame1), "Check1");
    box->setIcon(EventPicture[static_cast<size_t>(i)]);
    box->setChecked(true);
    grid->addWidget(box, 1 + i, 0, 1, 2);
    Check1[static_cast<size_t>(i)] = box;
  }
  Command3 = MakeButton(Frame1, "Command3", &Form6::Command3_Click);
  Command4 = MakeButton(Frame1, "Command4", &Form6::Command4_Click);
  Command2 = MakeButton(Frame1, "Command2", &Form6::Command2_Click);
  grid->addWidget(Command3, 1 + kEventCount, 0);
  grid->addWidget(Command4, 1 + kEventCount, 1);
  grid->addWidget(Command2, 2 + kEventCount, 0, 1, 2);
  grid->setRowStretch(3 + kEventCount, 1);
}

void Form6::MakeDayList() {
  Frame2 = Named(new MovablePanel(Client(), "form6 Frame2", panels_, 0), "Frame2");
  Frame2->OnPutAway([this] { Command1_Click(); });
  Frame2->setFrameShape(QFrame::Box);
  Frame2->setAutoFillBackground(true);
  Frame2->setGeometry(kListPlace);
  MakeDayClose();
  MSFlexGrid1 =
      Named(new QTableWidget(0, static_cast<int>(kColumnHeads.size()), Frame2), "MSFlexGrid1");
  MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
  MSFlexGrid1->setSelectionBehavior(QAbstractItemView::SelectRows);
  MSFlexGrid1->setTabKeyNavigation(false);
  MSFlexGrid1->verticalHeader()->hide();
  MSFlexGrid1->verticalHeader()->setDefaultSectionSize(RowHeight(*MSFlexGrid1, kRowHeight));
  MSFlexGrid1->horizontalHeader()->setStretchLastSection(true);
  MSFlexGrid1->horizontalHeader()->setHighlightSections(false);
  MSFlexGrid1->setColumnWidth(0, kTimeWidth);
  Label3 = Named(new QLabel(Frame2), "Label3");
  auto* column = new QVBoxLayout(Frame2);
  column->setContentsMargins(8, MovablePanel::kTitleHeight, 8, 6);
  column->addWidget(MSFlexGrid1);
  column->addWidget(Label3);
  Frame2->hide();
}

void Form6::MakeDayClose() {
  Command1 = Named(new PictureButton(Frame2, QStringLiteral("close"), "form6 Command1_Click",
                                     [this] { Command1_Click(); }),
                   "Command1");
  const int margin = (MovablePanel::kTitleHeight - kCloseSize) / 2;
  Command1->setGeometry(Frame2->width() - kCloseSize - margin, margin, kCloseSize, kCloseSize);
}

/// The list of years ends before today. Such a year can't be chosen and none is selected, but its
/// month is shown all the same until another year is chosen.
void Form6::SelectToday() {
  const platform::DateTime now = platform::Now();
  shownYear_ = now.year;
  shownMonth_ = now.month;
  selectedDay_ = now.day;
  SelectMonth(*Combo1, *Combo2, now.year, now.month);
}

void Form6::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(Text(texts::kEventLogCaption));
  ApplyChooserLanguage(*Combo1, *Combo2, *today_);
  Label2->setText(Text(texts::kEventLogTypes));
  for (size_t i = 0; i < Check1.size(); ++i)
    Check1[i]->setText(QString::fromStdString(EventText[i]));
  Command1->setToolTip(Text(texts::kEventLogClose));
  Command1->setAccessibleName(Text(texts::kEventLogClose));
  Command2->setText(Text(texts::kEventLogRefresh));
  Command2->setToolTip(Text(texts::kEventLogRefreshTip));
  Command3->setText(Text(texts::kEventLogSelectAll));
  Command4->setText(Text(texts::kEventLogSelectNone));
  MSFlexGrid1->setHorizontalHeaderLabels({Text(kColumnHeads[0]), Text(kColumnHeads[1])});
  MSFlexGrid1->setAccessibleName(Text(texts::kEventLogDayList));
  renewdatetable();
  if (!Frame2->isHidden()) FillDayList();
  Form_Resize();
}

void Form6::LayoutControls() {
  Label1->setGeometry(kHeaderPlace);
  Combo1->setGeometry(kYearPlace);
  Combo2->setGeometry(kMonthPlace);
  today_->setGeometry(kTodayPlace);
  Picture1->setGeometry(kGridPlace);
  Frame1->setGeometry(kTypesPlace);
  layout_.Resizeinit(Client()->size(), {Label1, Combo1, Combo2, today_, Picture1, Frame1});
  Form_Resize();
}

void Form6::Form_Resize() {
  layout_.Apply(Client()->size());
  ReWindow();
}

void Form6::ReWindow() {
  panels_.SetClientSize(Client()->width(), Client()->height());
  panels_.ReWindow();
  Frame2->FollowPanels();
}

/// The list of a day of the former month goes with it.
void Form6::ShowMonth() {
  Frame2->hide();
  selectedDay_ = std::min(selectedDay_, platform::DaysInMonth(shownYear_, shownMonth_));
  if (!month_.reloadmon(shownYear_, shownMonth_)) Tell("DATA EVENT ERROR");
  renewdatetable();
}

std::vector<const QPixmap*> Form6::PicturesOf(int day) const {
  std::vector<const QPixmap*> pictures;
  for (const size_t kind : month_.KindsOf(day)) pictures.push_back(&EventPicture[kind]);
  return pictures;
}

void Form6::renewdatetable() {
  Label1->setText(MonthTitle(shownYear_, shownMonth_));
  Picture1->ShowMonth(shownYear_, shownMonth_);
  Picture1->SelectDay(selectedDay_);
  for (int day = 1; day <= platform::DaysInMonth(shownYear_, shownMonth_); ++day)
    Picture1->SetPictures(day, PicturesOf(day));
}

void Form6::Today_Click() {
  SelectToday();
  ShowMonth();
}

void Form6::Combo1_Click(int index) {
  if (index < 0) return;
  shownYear_ = kFirstChooserYear + index;
  ShowMonth();
}

void Form6::Combo2_Click(int index) {
  if (index < 0) return;
  shownMonth_ = index + 1;
  ShowMonth();
}

void Form6::Picture1_Click(int day) {
  selectedDay_ = day;
  renewdatetable();
  Frame2->SetTitle(QStringLiteral("%1/%2/%3").arg(shownYear_).arg(shownMonth_).arg(day));
  FillDayList();
  Frame2->show();
  Frame2->raise();
  ReWindow();
}

EventKinds Form6::CheckedKinds() const {
  EventKinds kinds;
  for (size_t i = 0; i < Check1.size(); ++i) kinds[i] = Check1[i]->isChecked();
  return kinds;
}

void Form6::FillDayList() {
  const auto events = month_.Listed(selectedDay_, CheckedKinds());
  MSFlexGrid1->setRowCount(0);  // The rows of another day leave neither selection nor position.
  MSFlexGrid1->setRowCount(static_cast<int>(events.size()));
  for (int row = 0; row < MSFlexGrid1->rowCount(); ++row) {
    const LoggedEvent& event = *events[static_cast<size_t>(row)];
    const std::string& words = EventText[static_cast<size_t>(event.type) - 1];
    MSFlexGrid1->setItem(row, 0, new QTableWidgetItem(QString::fromStdString(event.time)));
    MSFlexGrid1->setItem(row, 1, new QTableWidgetItem(QString::fromStdString(words)));
  }
  const bool empty = month_.CountOf(selectedDay_) == 0;
  Label3->setText(
      empty ? Text(texts::kEventLogNoEvents)
            : QStringLiteral("%1: %2").arg(Text(texts::kEventLogCount)).arg(events.size()));
}

void Form6::Picture1_MouseMove(int day, int picture) {
  if (picture < 0) return Picture2->hide();
  const auto index = static_cast<size_t>(picture);
  const QPoint corner = Picture1->PictureRects(day).at(index).bottomRight();
  Picture2->ShowText(EventText.at(month_.KindsOf(day).at(index)),
                     Picture1->mapToParent(corner + QPoint(1, 1)));
}

/// The keyboard goes on in the month, and not in a chooser that the next key would turn.
void Form6::Command1_Click() {
  Frame2->hide();
  Picture1->setFocus();
}

void Form6::Command2_Click() { FillDayList(); }

void Form6::Command3_Click() { CheckAll(true); }

void Form6::Command4_Click() { CheckAll(false); }

void Form6::CheckAll(bool checked) {
  for (QCheckBox* box : Check1) box->setChecked(checked);
  FillDayList();
}

}  // namespace varek

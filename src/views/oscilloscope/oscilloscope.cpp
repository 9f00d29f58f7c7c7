#include "views/oscilloscope/oscilloscope.h"

#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalBlocker>

#include "core/data_center.h"
#include "drawing/palette.h"
#include "platform/desktop/message_box.h"
#include "platform/system/paths.h"
#include "platform/text/text.h"
#include "platform/time/clock.h"
#include "platform/time/events.h"
#include "records/databases.h"
#include "texts/language.h"
#include "views/kit/calendar/month_calendar.h"
#include "views/kit/controls/colors.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/windows/movable_panel.h"
#include "views/oscilloscope/curve_panel.h"
#include "views/oscilloscope/curves/scope_colors.h"
#include "views/oscilloscope/scope_tip.h"
#include "views/oscilloscope/scope_widgets.h"

namespace varek {

namespace {

constexpr QSize kStartSize{1000, 600};
constexpr QSize kLeastSize{900, 500};

constexpr int kMargin = 4;
constexpr int kPanelWidth = 336;
constexpr int kColumn = kPanelWidth + 2 * kMargin;  ///< in which the panels stand at the start
constexpr int kPlateHeight = 44;                    ///< below the plot
constexpr int kHoursWidth = 124;
constexpr int kMiddleHeight = 180;  ///< of the calendar and the hours
constexpr QSize kButtonSize{96, 30};

enum PanelNumber : size_t { kCalendarPanel, kHoursPanel, kCurvePanel, kMiniaturePanel, kPanels };

QString Shown(size_t text) { return QString::fromStdString(LangText[text]); }

/// "00:00 ~ 01:00" to "23:00 ~ 24:00".
QString HourLine(int hour) {
  const auto text = [](int value) { return platform::ZeroPadded(value, 2) + ":00"; };
  return QString::fromStdString(text(hour) + " ~ " + text(hour + 1));
}

ScopePoint PointOf(const QMouseEvent& event) {
  return {event.position().x(), event.position().y()};
}

}  // namespace

FormSlot<Form3>& Oscilloscope() {
  static FormSlot<Form3> slot(Form3::kNumber);
  return slot;
}

void ShowOscilloscope() { Oscilloscope().Get().ShowAndRaise(); }

Form3::Form3()
    : ViewWindow(kNumber, kStartSize, kLeastSize),
      DayTable(GetTodayText()),
      chart_(data_, view_),
      overview_(data_, view_),
      panels_(std::vector<Panel>(kPanels), WhenResized::FollowEdges) {
  Enter("Form_Load", [this] { OpenData(); });
  MakePlot();
  MakeButtons();
  MakeMiniature();
  MakeCalendar();
  MakeHours();
  Picture7 = new CurvePanel(Client(), panels_, kCurvePanel, [this] { Check1_Click(); });
  SwitchCurves();
  Picture9 = new BusyBar(room_);
  ApplyLanguage();
  Resizeinit();
  DataCenter.FormOpen[kNumber] = kSet;
}

Form3::~Form3() {
  // The list goes after this, and must not report its selection then.
  disconnect(List1, nullptr, this, nullptr);
  Picture1->Forget();
  Picture2->Forget();
  DataCenter.FormOpen[kNumber] = kClear;
}

/// Without the files the window opens all the same, and has no data.
void Form3::OpenData() {
  Data1.emplace(platform::ProgramPath(kDataFile), platform::Access::ReadOnly);
  Data2.emplace(platform::ProgramPath(kEventFile), platform::Access::ReadOnly);
}

void Form3::MakePlot() {
  room_ = new QWidget(Client());
  Picture1 = new SurfaceView(
      room_, "form3 Picture1", chart_.Picture(),
      {[this](const QMouseEvent& event) { Picture1_MouseDown(event); },
       [this](const QMouseEvent& event) { Picture1_MouseMove(event); },
       [this](const QMouseEvent& event) { Picture1_MouseUp(event); }, [this] { Label1->hide(); }});
  Label1 = new TipPlate(Picture1);
}

void Form3::MakeButtons() {
  Picture15 = new QWidget(room_);
  Label2 = new QLabel(Picture15);
  Label2->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  int left = kMargin;
  const auto button = [&](const char* place, void (Form3::*act)()) {
    auto* made = new PictureButton(Picture15, QStringLiteral("button"), place,
                                   [this, act] { (this->*act)(); });
    made->setGeometry(QRect({left, (kPlateHeight - kButtonSize.height()) / 2}, kButtonSize));
    left += kButtonSize.width() + kMargin;
    return made;
  };
  Command1 = button("form3 Command1_Click", &Form3::Command1_Click);
  Command2 = button("form3 Command2_Click", &Form3::Command2_Click);
  resetButton_ = button("form3 ResetView", &Form3::ResetView);
  wholeDayButton_ = button("WholeDay", &Form3::WholeDay);
}

void Form3::MakeMiniature() {
  Picture8 = new MovablePanel(Client(), "form3 Picture8", panels_, kMiniaturePanel);
  Picture2 = new SurfaceView(Picture8, "form3 Picture2", overview_.Picture(),
                             {[this](const QMouseEvent& event) { Picture2_MouseMove(event); },
                              [this](const QMouseEvent& event) { Picture2_MouseMove(event); },
                              [this](const QMouseEvent& event) { Picture2_MouseUp(event); },
                              {}});
  const int margin = (kPanelWidth - kOverviewWidth) / 2;
  Picture2->setGeometry(margin, MovablePanel::kTitleHeight, kOverviewWidth, kOverviewHeight);
  Picture8->resize(kPanelWidth, MovablePanel::kTitleHeight + kOverviewHeight + margin);
}

void Form3::MakeCalendar() {
  Picture5 = new MovablePanel(Client(), "form3 Picture5", panels_, kCalendarPanel);
  Picture11 = new MonthCalendar(Picture5, "form3 Picture11_Click", [this] { Picture11_Click(); });
  const int width = kPanelWidth - kHoursWidth - kMargin;
  Picture11->setGeometry(kMargin, MovablePanel::kTitleHeight, width - 2 * kMargin, kMiddleHeight);
  Picture5->resize(width, MovablePanel::kTitleHeight + kMiddleHeight + kMargin);
}

void Form3::MakeHours() {
  Picture6 = new MovablePanel(Client(), "form3 Picture6", panels_, kHoursPanel);
  List1 = new QListWidget(Picture6);
  List1->setSelectionMode(QAbstractItemView::ExtendedSelection);
  List1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  for (int hour = 0; hour < kHoursOfDay; ++hour) List1->addItem(HourLine(hour));
  List1->setGeometry(kMargin, MovablePanel::kTitleHeight, kHoursWidth - 2 * kMargin, kMiddleHeight);
  Picture6->resize(kHoursWidth, MovablePanel::kTitleHeight + kMiddleHeight + kMargin);
  connect(List1, &QListWidget::itemSelectionChanged, this, [this] { PostHoursClick(); });
}

void Form3::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(Shown(texts::kScopeCaption));
  Command1->SetText(Shown(texts::kScopeZoomIn));
  Command2->SetText(Shown(texts::kScopeZoomOut));
  resetButton_->SetText(Shown(texts::kScopeReset));
  wholeDayButton_->SetText(Shown(texts::kScopeWholeDay));
  Picture5->SetTitle(Shown(texts::kScopeCalendar));
  Picture6->SetTitle(Shown(texts::kScopeHours));
  Picture8->SetTitle(Shown(texts::kScopeOverview));
  List1->setAccessibleName(Shown(texts::kScopeHours));
  Picture7->ApplyLanguage();
  Picture11->ApplyLanguage();
  Picture9->ApplyLanguage();
  Label1->hide();
}

/// The panels stand in a column on the left, so that a window that grows gives all to the plot.
void Form3::Resizeinit() {
  for (MovablePanel* panel : {Picture5, Picture6, static_cast<MovablePanel*>(Picture7), Picture8})
    panel->TellPanels();
  int top = kMargin;
  const auto place = [&](PanelNumber number, int left) {
    panels_.At(number).left = left;
    panels_.At(number).top = top;
  };
  place(kMiniaturePanel, kMargin);
  top += Picture8->height() + kMargin;
  place(kCalendarPanel, kMargin);
  place(kHoursPanel, 2 * kMargin + Picture5->width());
  top += Picture5->height() + kMargin;
  place(kCurvePanel, kMargin);
  const QSize room(Client()->width() - kColumn, Client()->height());
  Picture1->setGeometry(0, kMargin, room.width() - kMargin, room.height() - kPlateHeight - kMargin);
  layout_.Resizeinit(room, {Picture1});
  Form_Resize();
}

void Form3::Form_Resize() {
  room_->setGeometry(kColumn, 0, Client()->width() - kColumn, Client()->height());
  layout_.Apply(room_->size());
  chart_.Resize(Picture1->width(), Picture1->height());
  Label1->hide();
  ReWindow();
  ShowData();
}

void Form3::ReWindow() {
  panels_.SetClientSize(Client()->width(), Client()->height());
  panels_.ReWindow();
  for (MovablePanel* panel : {Picture5, Picture6, static_cast<MovablePanel*>(Picture7), Picture8})
    panel->FollowPanels();
  PlacePlate();
}

/// The plate and its text follow the plot.
void Form3::PlacePlate() {
  const int top = Picture1->geometry().bottom() + 1;
  Picture15->setGeometry(0, top, Picture1->width(), room_->height() - top);
  const int left = wholeDayButton_->geometry().right() + kMargin;
  Label2->setGeometry(left, 0, Picture15->width() - left, kPlateHeight);
}

/// Hours that are selected stay so.
void Form3::Form_Activate() {
  if (!List1->selectedItems().isEmpty()) return;
  QListWidgetItem* line = List1->item(platform::Now().hour);
  List1->setCurrentItem(line);
  List1->scrollToItem(line, QAbstractItemView::PositionAtCenter);
}

HourLines Form3::SelectedLines() const {
  HourLines lines{};
  for (size_t hour = 0; hour < lines.size(); ++hour)
    lines[hour] = List1->item(static_cast<int>(hour))->isSelected();
  return lines;
}

/// From the event loop: a sweep over many lines loads once, and a load is no part of an activation.
void Form3::PostHoursClick() {
  if (clickWaits_) return;
  clickWaits_ = true;
  platform::Post("form3 List1_Click", [form = QPointer(this)] {
    if (form) form->List1_Click();
  });
}

void Form3::List1_Click() {
  clickWaits_ = false;
  const ScopeHours hours = ChosenHours(SelectedLines());
  if (hours.TotalSeconds == 0) return;
  view_.Recentre(hours.TotalSeconds);
  LoadDayData();
}

void Form3::Picture11_Click() {
  DayTable = platform::ZeroPadded(Picture11->Year(), 4) +
             platform::ZeroPadded(Picture11->Month(), 2) +
             platform::ZeroPadded(Picture11->Day(), 2);
  LoadDayData();
}

void Form3::LoadDayData() {
  const ScopeHours hours = ChosenHours(SelectedLines());
  if (hours.TotalSeconds == 0) return;
  std::optional<LoadResult> result;  // Nothing where the load failed.
  Label1->hide();
  Picture9->Open();
  Enter("LoadDayData", [&] {
    if (!Data2) OpenData();
    result = data_.LoadDayData(*Data1, *Data2, DayTable, hours,
                               [this](int percent) { Picture9->SetProgress(percent); });
  });
  Picture9->hide();
  Picture7->ShowMeasured();
  SwitchCurves();
  ShowData();
  constexpr auto kHint = platform::MessageIcon::Information;
  if (!result) Tell(LangText[texts::kDatabaseError]);
  if (result == LoadResult::NoTable) Tell(LangText[texts::kNoDataForDay] + "!", kHint);
  if (result == LoadResult::NoRows) Tell(LangText[texts::kNoDataForDay], kHint);
}

void Form3::SwitchCurves() {
  for (int i = 0; i < kScopeSwitches; ++i) chart_.Switch(i, Picture7->IsOn(i));
}

void Form3::Check1_Click() {
  SwitchCurves();
  ShowView();
}

void Form3::ShowData() {
  overview_.DrawOverview();
  ShowView();
}

void Form3::ShowView() {
  overview_.DrawOverviewBox();
  chart_.DrawChart();
  ShowRange();
  Picture1->update();
  Picture2->update();
}

/// The day, and the time from edge to edge of the plot.
void Form3::ShowRange() {
  const auto time = [this](double second) {
    return data_.TimeText(static_cast<int32_t>(second), TimeStyle::HourMinuteSecond);
  };
  const std::string day =
      DayTable.substr(0, 4) + "/" + DayTable.substr(4, 2) + "/" + DayTable.substr(6);
  Label2->setText(
      QString::fromStdString(day + "\n" + time(view_.Left()) + " ~ " + time(view_.Right())));
}

void Form3::ResetView() {
  view_.ResetView();
  ShowView();
}

void Form3::WholeDay() {
  {
    const QSignalBlocker once(List1);
    List1->selectAll();
  }
  view_.Recentre(ChosenHours(SelectedLines()).TotalSeconds);
  view_.ShowAll();
  LoadDayData();
}

void Form3::Command1_Click() {
  view_.ZoomIn();
  ShowView();
}

void Form3::Command2_Click() {
  view_.ZoomOut();
  ShowView();
}

void Form3::Picture1_MouseDown(const QMouseEvent& event) {
  Label1->hide();
  if (event.button() == Qt::LeftButton) view_.Grab(PointOf(event));
  if (event.button() == Qt::RightButton) bandCorner_ = PointOf(event);
}

void Form3::Picture1_MouseMove(const QMouseEvent& event) {
  if (event.buttons() & Qt::LeftButton) {
    view_.DragTo(PointOf(event), Picture1->width(), Picture1->height());
    return ShowView();
  }
  if (event.buttons() & Qt::RightButton) {
    chart_.DrawBand(bandCorner_, PointOf(event));
    return Picture1->update();
  }
  const QPoint at = event.position().toPoint();
  const auto tip = TipAt(chart_.Picture(), at.x(), at.y(), data_, view_);
  Movlab(at.x(), at.y(), tip.has_value(), tip ? tip->text : "", tip ? tip->code : kNoCode);
}

void Form3::Picture1_MouseUp(const QMouseEvent& event) {
  if (event.button() != Qt::RightButton) return;
  view_.SelectBand(bandCorner_, PointOf(event), Picture1->width(), Picture1->height());
  ShowView();
}

void Form3::Picture2_MouseMove(const QMouseEvent& event) {
  if (!(event.buttons() & Qt::LeftButton)) return;
  view_.CentreOn(PointOf(event));
  ShowView();
}

void Form3::Picture2_MouseUp(const QMouseEvent&) { ShowData(); }

void Form3::Movlab(int x, int y, bool selected, const std::string& text, int code) {
  if (selected) return Label1->ShowText(text, ColorOfCode(code), {x, y});
  Label1->hide();
}

}  // namespace varek

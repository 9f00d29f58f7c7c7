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
#include "records/files/databases.h"
#include "views/kit/calendar/month_calendar.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/shown.h"
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

/// "00:00 ~ 01:00" to "23:00 ~ 24:00".
QString HourLine(int hour) {
  const auto text = [](int value) { return platform::ZeroPadded(value, 2) + ":00"; };
  return Shown(text(hour) + " ~ " + text(hour + 1));
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
      dayTable_(GetTodayText()),
      chart_(data_, view_),
      overview_(data_, view_),
      panels_(std::vector<Panel>(kPanels), WhenResized::FollowEdges) {
  Enter("Form_Load", [this] { OpenData(); });
  MakePlot();
  MakeButtons();
  MakeMiniature();
  MakeCalendar();
  MakeHours();
  curves_ = new CurvePanel(Client(), panels_, kCurvePanel, [this] { CurvesClicked(); });
  SwitchCurves();
  busyBar_ = new BusyBar(room_);
  ApplyLanguage();
  Resizeinit();
}

Form3::~Form3() {
  // The list goes after this, and must not report its selection then.
  disconnect(hours_, nullptr, this, nullptr);
  plot_->Forget();
  miniature_->Forget();
}

/// Without the files the window opens all the same, and has no data.
void Form3::OpenData() {
  sampleFile_.emplace(platform::ProgramPath(kDataFile), platform::Access::ReadOnly);
  eventFile_.emplace(platform::ProgramPath(kEventFile), platform::Access::ReadOnly);
}

void Form3::MakePlot() {
  room_ = new QWidget(Client());
  plot_ = new SurfaceView(
      room_, "form3 Picture1", chart_.Picture(),
      {[this](const QMouseEvent& event) { PlotPressed(event); },
       [this](const QMouseEvent& event) { PlotHoveredOrDragged(event); },
       [this](const QMouseEvent& event) { PlotReleased(event); }, [this] { tip_->hide(); }});
  tip_ = new TipPlate(plot_);
}

void Form3::MakeButtons() {
  plate_ = new QWidget(room_);
  rangeLabel_ = new QLabel(plate_);
  rangeLabel_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  int left = kMargin;
  const auto button = [&](const char* place, void (Form3::*act)()) {
    auto* made =
        new PictureButton(plate_, QStringLiteral("button"), place, [this, act] { (this->*act)(); });
    made->setGeometry(QRect({left, (kPlateHeight - kButtonSize.height()) / 2}, kButtonSize));
    left += kButtonSize.width() + kMargin;
    return made;
  };
  zoomInButton_ = button("form3 Command1_Click", &Form3::ZoomIn);
  zoomOutButton_ = button("form3 Command2_Click", &Form3::ZoomOut);
  resetButton_ = button("form3 ResetView", &Form3::ResetView);
  wholeDayButton_ = button("WholeDay", &Form3::WholeDay);
}

void Form3::MakeMiniature() {
  miniaturePanel_ = new MovablePanel(Client(), "form3 Picture8", panels_, kMiniaturePanel);
  miniature_ = new SurfaceView(miniaturePanel_, "form3 Picture2", overview_.Picture(),
                               {[this](const QMouseEvent& event) { MiniatureDragged(event); },
                                [this](const QMouseEvent& event) { MiniatureDragged(event); },
                                [this](const QMouseEvent& event) { MiniatureReleased(event); },
                                {}});
  const int margin = (kPanelWidth - kOverviewWidth) / 2;
  miniature_->setGeometry(margin, MovablePanel::kTitleHeight, kOverviewWidth, kOverviewHeight);
  miniaturePanel_->resize(kPanelWidth, MovablePanel::kTitleHeight + kOverviewHeight + margin);
}

void Form3::MakeCalendar() {
  calendarPanel_ = new MovablePanel(Client(), "form3 Picture5", panels_, kCalendarPanel);
  calendar_ = new MonthCalendar(calendarPanel_, "form3 Picture11_Click", [this] { DayChosen(); });
  const int width = kPanelWidth - kHoursWidth - kMargin;
  calendar_->setGeometry(kMargin, MovablePanel::kTitleHeight, width - 2 * kMargin, kMiddleHeight);
  calendarPanel_->resize(width, MovablePanel::kTitleHeight + kMiddleHeight + kMargin);
}

void Form3::MakeHours() {
  hoursPanel_ = new MovablePanel(Client(), "form3 Picture6", panels_, kHoursPanel);
  hours_ = new QListWidget(hoursPanel_);
  hours_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  hours_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  for (int hour = 0; hour < kHoursOfDay; ++hour) hours_->addItem(HourLine(hour));
  hours_->setGeometry(kMargin, MovablePanel::kTitleHeight, kHoursWidth - 2 * kMargin,
                      kMiddleHeight);
  hoursPanel_->resize(kHoursWidth, MovablePanel::kTitleHeight + kMiddleHeight + kMargin);
  connect(hours_, &QListWidget::itemSelectionChanged, this, [this] { PostHoursChosen(); });
}

void Form3::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(Shown(texts::kScopeCaption));
  zoomInButton_->SetText(Shown(texts::kScopeZoomIn));
  zoomOutButton_->SetText(Shown(texts::kScopeZoomOut));
  resetButton_->SetText(Shown(texts::kScopeReset));
  wholeDayButton_->SetText(Shown(texts::kScopeWholeDay));
  calendarPanel_->SetTitle(Shown(texts::kScopeCalendar));
  hoursPanel_->SetTitle(Shown(texts::kScopeHours));
  miniaturePanel_->SetTitle(Shown(texts::kScopeOverview));
  hours_->setAccessibleName(Shown(texts::kScopeHours));
  curves_->ApplyLanguage();
  calendar_->ApplyLanguage();
  busyBar_->ApplyLanguage();
  tip_->hide();
}

/// The panels stand in a column on the left, so that a window that grows gives all to the plot.
void Form3::Resizeinit() {
  for (MovablePanel* panel : Panels()) panel->TellPanels();
  int top = kMargin;
  const auto place = [&](PanelNumber number, int left) {
    panels_.At(number).left = left;
    panels_.At(number).top = top;
  };
  place(kMiniaturePanel, kMargin);
  top += miniaturePanel_->height() + kMargin;
  place(kCalendarPanel, kMargin);
  place(kHoursPanel, 2 * kMargin + calendarPanel_->width());
  top += calendarPanel_->height() + kMargin;
  place(kCurvePanel, kMargin);
  const QSize room(Client()->width() - kColumn, Client()->height());
  plot_->setGeometry(0, kMargin, room.width() - kMargin, room.height() - kPlateHeight - kMargin);
  layout_.Resizeinit(room, {plot_});
  Form_Resize();
}

void Form3::Form_Resize() {
  room_->setGeometry(kColumn, 0, Client()->width() - kColumn, Client()->height());
  layout_.Apply(room_->size());
  chart_.Resize(plot_->width(), plot_->height());
  tip_->hide();
  ReWindow();
  ShowData();
}

void Form3::ReWindow() {
  panels_.SetClientSize(Client()->width(), Client()->height());
  panels_.ReWindow();
  for (MovablePanel* panel : Panels()) panel->FollowPanels();
  PlacePlate();
}

std::array<MovablePanel*, 4> Form3::Panels() const {
  return {calendarPanel_, hoursPanel_, curves_, miniaturePanel_};
}

/// The plate and its text follow the plot.
void Form3::PlacePlate() {
  const int top = plot_->geometry().bottom() + 1;
  plate_->setGeometry(0, top, plot_->width(), room_->height() - top);
  const int left = wholeDayButton_->geometry().right() + kMargin;
  rangeLabel_->setGeometry(left, 0, plate_->width() - left, kPlateHeight);
}

/// Hours that are selected stay so.
void Form3::Form_Activate() {
  if (!hours_->selectedItems().isEmpty()) return;
  QListWidgetItem* line = hours_->item(platform::Now().hour);
  hours_->setCurrentItem(line);
  hours_->scrollToItem(line, QAbstractItemView::PositionAtCenter);
}

HourLines Form3::SelectedLines() const {
  HourLines lines{};
  for (size_t hour = 0; hour < lines.size(); ++hour)
    lines[hour] = hours_->item(static_cast<int>(hour))->isSelected();
  return lines;
}

/// From the event loop: a sweep over many lines loads once, and a load is no part of an activation.
void Form3::PostHoursChosen() {
  if (hoursWait_) return;
  hoursWait_ = true;
  platform::Post("form3 List1_Click", [form = QPointer(this)] {
    if (form) form->HoursChosen();
  });
}

void Form3::HoursChosen() {
  hoursWait_ = false;
  const ScopeHours hours = ChosenHours(SelectedLines());
  if (hours.TotalSeconds == 0) return;
  view_.Recentre(hours.TotalSeconds);
  LoadDayData();
}

void Form3::DayChosen() {
  dayTable_ = platform::FormatDayName({calendar_->Year(), calendar_->Month(), calendar_->Day()});
  LoadDayData();
}

void Form3::LoadDayData() {
  const ScopeHours hours = ChosenHours(SelectedLines());
  if (hours.TotalSeconds == 0) return;
  std::optional<LoadResult> result;  // Nothing where the load failed.
  tip_->hide();
  busyBar_->Open();
  Enter("LoadDayData", [&] {
    if (!eventFile_) OpenData();
    result = data_.LoadDayData(*sampleFile_, *eventFile_, dayTable_, hours,
                               [this](int percent) { busyBar_->SetProgress(percent); });
  });
  busyBar_->hide();
  curves_->ShowMeasured();
  SwitchCurves();
  ShowData();
  constexpr auto kHint = platform::MessageIcon::Information;
  if (!result) Tell(LangText[texts::kDatabaseError]);
  if (result == LoadResult::NoTable) Tell(LangText[texts::kNoDataForDay] + "!", kHint);
  if (result == LoadResult::NoRows) Tell(LangText[texts::kNoDataForDay], kHint);
}

void Form3::SwitchCurves() {
  for (int i = 0; i < kScopeSwitches; ++i) chart_.Switch(i, curves_->IsOn(i));
}

void Form3::CurvesClicked() {
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
  plot_->update();
  miniature_->update();
}

/// The day, and the time from edge to edge of the plot.
void Form3::ShowRange() {
  const auto time = [this](double second) {
    return data_.TimeText(static_cast<int32_t>(second), TimeStyle::HourMinuteSecond);
  };
  rangeLabel_->setText(
      Shown(DateOf(dayTable_) + "\n" + time(view_.Left()) + " ~ " + time(view_.Right())));
}

void Form3::ResetView() {
  view_.ResetView();
  ShowView();
}

void Form3::WholeDay() {
  {
    const QSignalBlocker once(hours_);
    hours_->selectAll();
  }
  view_.Recentre(ChosenHours(SelectedLines()).TotalSeconds);
  view_.ShowAll();
  LoadDayData();
}

void Form3::ZoomIn() {
  view_.ZoomIn();
  ShowView();
}

void Form3::ZoomOut() {
  view_.ZoomOut();
  ShowView();
}

void Form3::PlotPressed(const QMouseEvent& event) {
  tip_->hide();
  if (event.button() == Qt::LeftButton) view_.Grab(PointOf(event));
  if (event.button() == Qt::RightButton) bandCorner_ = PointOf(event);
}

void Form3::PlotHoveredOrDragged(const QMouseEvent& event) {
  if (event.buttons() & Qt::LeftButton) {
    view_.DragTo(PointOf(event), plot_->width(), plot_->height());
    return ShowView();
  }
  if (event.buttons() & Qt::RightButton) {
    chart_.DrawBand(bandCorner_, PointOf(event));
    return plot_->update();
  }
  const QPoint at = event.position().toPoint();
  const auto tip = TipAt(chart_.Picture(), at.x(), at.y(), data_, view_);
  Movlab(at.x(), at.y(), tip.has_value(), tip ? tip->text : "", tip ? tip->code : kNoCode);
}

void Form3::PlotReleased(const QMouseEvent& event) {
  if (event.button() != Qt::RightButton) return;
  view_.SelectBand(bandCorner_, PointOf(event), plot_->width(), plot_->height());
  ShowView();
}

void Form3::MiniatureDragged(const QMouseEvent& event) {
  if (!(event.buttons() & Qt::LeftButton)) return;
  view_.CentreOn(PointOf(event));
  ShowView();
}

void Form3::MiniatureReleased(const QMouseEvent&) { ShowData(); }

void Form3::Movlab(int x, int y, bool selected, const std::string& text, int code) {
  if (selected) return tip_->ShowText(text, ColorOfCode(code), {x, y});
  tip_->hide();
}

}  // namespace varek

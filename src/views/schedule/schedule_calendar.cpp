#include "views/schedule/schedule_calendar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "core/data_center.h"
#include "drawing/palette.h"
#include "texts/language.h"
#include "views/kit/calendar/month_grid.h"
#include "views/kit/controls/picture_view.h"
#include "views/kit/controls/push_button.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/pictures.h"
#include "views/kit/looks/shown.h"
#include "views/schedule/delete_panel.h"
#include "views/schedule/schedule_dialog.h"
#include "views/schedule/schedule_list.h"

namespace varek {

namespace {

constexpr size_t kMostEntriesOfADay = 100;

// Places are those in a client area of the start size.
constexpr QSize kStartSize{1010, 690};
constexpr QSize kLeastSize{1010, 560};  ///< list and dialog stand side by side
constexpr MonthPlaces kPlaces{.title{12, 10, 230, 30},
                              .years{256, 10, 140, 30},
                              .months{406, 10, 140, 30},
                              .today{556, 10, 110, 30},
                              .days{12, 80, 986, 400}};
constexpr QRect kNewPlace{676, 10, 140, 30};
constexpr QRect kLegendPlace{12, 44, 986, 32};

constexpr QSize kPictureSize{24, 24};
constexpr int kLegendGap = 4;

// Numbers of the movable panels.
constexpr size_t kListPanel = 0;
constexpr size_t kDialogPanel = 1;
constexpr size_t kDeletePanel = 2;

constexpr char kTooManyEntries[] = "DATA EVENT ERROR";

constexpr DayColors kPlainDay{{255, 255, 255}, palette::kFace};
constexpr DayColors kToday{{205, 238, 240}, palette::kFace};
constexpr DayColors kSelectedDay{{111, 127, 255}, {255, 255, 255}};

bool Plans(const std::vector<ScheduleEntry>& entries, char action) {
  return std::ranges::any_of(
      entries, [action](const ScheduleEntry& entry) { return entry.event.starts_with(action); });
}

}  // namespace

FormSlot<Form4>& ScheduleCalendar() {
  static FormSlot<Form4> slot(Form4::kNumber);
  return slot;
}

void ShowScheduleCalendar() { ScheduleCalendar().Get().ShowAndRaise(); }

Form4::Form4()
    : MonthWindow(kNumber, kStartSize, kLeastSize, {Panel{}, Panel{}, Panel{}},
                  WhenResized::FollowEdges) {
  LoadActionPictures();
  newEntry_ = MakeButton(Client(), "form4 NewEntry_Click", [this] { StartNewEntry(); });
  newEntry_->setMinimumHeight(kButtonHeight);
  MakeLegend();
  MakeDays({kPlainDay, kToday, kSelectedDay});
  MakePanels();
  SelectToday();
  reloadmon();
  ApplyLanguage();
  LayoutControls();
  ClickDay(selected_.day);
  days_->setFocus();
}

Form4::~Form4() {
  // The toolkit may send leave events to parts of a window that is being destroyed.
  for (PictureView* picture : legendPictures_) picture->OnMouse({}, {});
}

void Form4::LoadActionPictures() {
  for (size_t i = 0; i < kPictures; ++i)
    actionPictures_[i] = LoadPicture("SchedulePic" + std::to_string(i + 1) + ".jpg");
}

/// The action of the picture under the pointer is named beside the strip.
void Form4::MakeLegend() {
  legend_ = new QWidget(Client());
  auto* strip = new QHBoxLayout(legend_);
  strip->setContentsMargins(0, 0, 0, 0);
  strip->setSpacing(kLegendGap);
  legendText_ = new QLabel(legend_);
  legendText_->setObjectName(QStringLiteral("pointedAction"));
  for (size_t i = 0; i < kPictures; ++i) {
    legendPictures_[i] = new PictureView(legend_);
    legendPictures_[i]->setFixedSize(kPictureSize);
    legendPictures_[i]->SetPicture(actionPictures_[i]);
    legendPictures_[i]->OnMouse(
        "form4 Picture5_MouseMove",
        [this, code = std::string(1, kActionLetters[i])] {
          legendText_->setText(Shown(EventCodeText(code)));
        },
        [this] { legendText_->clear(); });
    strip->addWidget(legendPictures_[i]);
  }
  strip->addWidget(legendText_, 1);
}

void Form4::MakePanels() {
  list_ = new ScheduleList(Client(), panels_, kListPanel,
                           {.edit = [this] { EditSelected(); },
                            .remove = [this] { DeleteSelected(); },
                            .close = [this] { CloseList(); }});
  dialog_ =
      new ScheduleDialog(Client(), panels_, kDialogPanel,
                         {.save = [this] { SaveEntry(); }, .cancel = [this] { HideDialog(); }});
  deletePanel_ =
      new DeletePanel(Client(), panels_, kDeletePanel, [this](char choice) { DeleteBy(choice); });
  list_->OnPutAway([this] { CloseList(); });
  dialog_->OnPutAway([this] { HideDialog(); });
  deletePanel_->OnPutAway([this] { HidePanel(*deletePanel_); });
  for (MovablePanel* panel : std::initializer_list<MovablePanel*>{list_, dialog_, deletePanel_}) {
    AddPanel(*panel);
    panel->hide();
    panel->TellPanels();
  }
}

void Form4::ApplyLanguage() {
  MonthWindow::ApplyLanguage();
  SetCaption(Shown(texts::kScheduleCaption));
  newEntry_->setText(Shown(texts::kScheduleNewEntry));
  list_->ApplyLanguage();
  dialog_->ApplyLanguage();
  deletePanel_->ApplyLanguage();
  TitleDialog();
  reNewTable();
  list_->ShowEntries(month_.days.at(static_cast<size_t>(selected_.day) - 1));
  Form_Resize();
}

/// The list and the dialog begin side by side below the month, and stuck to the lower edge.
void Form4::LayoutControls() {
  newEntry_->setGeometry(kNewPlace);
  legend_->setGeometry(kLegendPlace);
  LayoutMonth(kPlaces, {newEntry_, legend_});
  const QSize client = Client()->size();
  panels_.SetClientSize(client.width(), client.height());
  panels_.At(kListPanel).left = panels_.MakeXPointForm(kListPanel, 0);
  panels_.At(kListPanel).top =
      panels_.MakeYPointForm(kListPanel, client.height() - list_->height());
  panels_.At(kDialogPanel).left =
      panels_.MakeXPointForm(kDialogPanel, client.width() - dialog_->width());
  panels_.At(kDialogPanel).top =
      panels_.MakeYPointForm(kDialogPanel, client.height() - dialog_->height());
  Form_Resize();
}

void Form4::renewdatetable() {
  reloadmon();
  reNewTable();
}

/// A month that can't be read is reported as one that is too full.
void Form4::reloadmon() {
  bool complete = false;
  Enter("reloadmon", [&] {
    complete = LoadMonthTable(selected_.year, selected_.month, kMostEntriesOfADay, month_);
  });
  if (!complete) Tell(kTooManyEntries);
}

void Form4::reNewTable() { RepaintMonth(); }

/// One picture for each action, however often it is planned, in the order of the legend.
std::vector<const QPixmap*> Form4::PicturesOf(int day) const {
  const auto& entries = month_.days.at(static_cast<size_t>(day) - 1);
  std::vector<const QPixmap*> pictures;
  for (size_t i = 0; i < kPictures; ++i) {
    if (Plans(entries, kActionLetters[i])) pictures.push_back(&actionPictures_[i]);
  }
  return pictures;
}

/// A list that is up goes on to the day that is selected now: its buttons act on that date.
void Form4::ShowMonth() {
  renewdatetable();
  if (!list_->isHidden()) ClickDay(selected_.day);
}

/// What every change of the table ends with; the run list has been reloaded by then.
void Form4::ShowAfterChange() {
  renewdatetable();
  ClickDay(selected_.day);
}

void Form4::ShowPanel(MovablePanel& panel) {
  panel.show();
  panel.raise();
  panel.TellPanels();
  ReWindow();
}

/// The keyboard goes on in the month: what the toolkit would choose is a chooser, in which the next
/// key would turn to another year.
void Form4::HidePanel(MovablePanel& panel) {
  panel.hide();
  panel.TellPanels();
  days_->setFocus();
}

void Form4::TitleDialog() {
  dialog_->SetTitle(Shown(edited_ ? texts::kScheduleEdit : texts::kScheduleNewEntry));
}

void Form4::ClickDay(int day) {
  selected_.day = day;
  days_->SelectDay(day);
  list_->SetTitle(Shown(ScheduleDate(selected_.year, selected_.month, day)));
  list_->ShowEntries(month_.days.at(static_cast<size_t>(day) - 1));
  ReNewTodayEvent(selected_.year, selected_.month, day);
  ShowPanel(*list_);
}

void Form4::StartNewEntry() {
  edited_.reset();
  dialog_->SetFields(ScheduleForm());
  TitleDialog();
  ShowPanel(*dialog_);
}

/// A new entry leaves the dialog up, for the next one; a refused one leaves it as it is.
void Form4::SaveEntry() {
  const ScheduleForm form = dialog_->Fields();
  const std::string refused =
      edited_ ? SaveEditedEntry(*edited_, form, Selected()) : SaveNewEntry(form, Selected());
  if (!refused.empty()) return Tell(refused);
  if (edited_) HidePanel(*dialog_);
  ShowAfterChange();
}

void Form4::HideDialog() { HidePanel(*dialog_); }

void Form4::CloseList() {
  HidePanel(*list_);
  edited_.reset();
  TitleDialog();
}

void Form4::EditSelected() {
  const std::optional<int> number = list_->SelectedNumber();
  ScheduleForm form = dialog_->Fields();
  if (!number || !OpenEntry(*number, form)) return;
  edited_ = number;
  dialog_->SetFields(form);
  TitleDialog();
  ShowPanel(*dialog_);
}

void Form4::DeleteSelected() {
  const std::optional<int> number = list_->SelectedNumber();
  if (!number) return;
  const std::string time = list_->SelectedTime();
  const Deletion deletion = DeleteEntry(*number);
  if (deletion == Deletion::Deleted) ShowAfterChange();
  if (deletion != Deletion::Ask) return;
  deleting_ = *number;
  deletingDay_ = Selected();
  deletingTime_ = time;
  CentreDeletePanel();
  ShowPanel(*deletePanel_);
}

/// The step of a drag to where it stands makes it forget the edges to which it was dragged before.
void Form4::CentreDeletePanel() {
  panels_.At(kDeletePanel).left = (Client()->width() - deletePanel_->width()) / 2;
  panels_.At(kDeletePanel).top = (Client()->height() - deletePanel_->height()) / 2;
  panels_.Grab(0, 0);
  panels_.Drag(kDeletePanel, 0, 0);
}

void Form4::DeleteBy(char choice) {
  HidePanel(*deletePanel_);
  DeleteByChoice(choice, deleting_, deletingDay_, deletingTime_);
  ShowAfterChange();
}

}  // namespace varek

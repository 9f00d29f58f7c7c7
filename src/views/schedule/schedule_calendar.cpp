#include "views/schedule/schedule_calendar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "core/data_center.h"
#include "drawing/palette.h"
#include "platform/desktop/message_box.h"
#include "platform/time/calendar.h"
#include "platform/time/clock.h"
#include "platform/time/events.h"
#include "texts/language.h"
#include "views/kit/calendar/month_choosers.h"
#include "views/kit/calendar/month_grid.h"
#include "views/kit/controls/choice_list.h"
#include "views/kit/controls/colors.h"
#include "views/kit/controls/picture_view.h"
#include "views/kit/controls/pictures.h"
#include "views/schedule/delete_panel.h"
#include "views/schedule/schedule_controls.h"
#include "views/schedule/schedule_dialog.h"
#include "views/schedule/schedule_list.h"

namespace varek {

namespace {

constexpr size_t kMostEntriesOfADay = 100;

// Places are those in a client area of the start size.
constexpr QSize kStartSize{1010, 690};
constexpr QSize kLeastSize{1010, 560};  ///< list and dialog stand side by side
constexpr QRect kHeaderPlace{12, 10, 230, 30};
constexpr QRect kYearPlace{256, 10, 140, 30};
constexpr QRect kMonthPlace{406, 10, 140, 30};
constexpr QRect kTodayPlace{556, 10, 110, 30};
constexpr QRect kNewPlace{676, 10, 140, 30};
constexpr QRect kLegendPlace{12, 44, 986, 32};
constexpr QRect kGridPlace{12, 80, 986, 400};

constexpr int kButtonHeight = 28;  ///< in the lowest window too: Chinese letters are high
constexpr int kHeaderSize = 18;    ///< pixels, of its letters
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

template <typename Control>
Control* Named(Control* control, const char* name) {
  control->setObjectName(QString::fromLatin1(name));
  return control;
}

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
    : ViewWindow(kNumber, kStartSize, kLeastSize),
      panels_({Panel{}, Panel{}, Panel{}}, WhenResized::FollowEdges) {
  LoadActionPictures();
  MakeChoosers();
  MakeLegend();
  MakeMonth();
  MakePanels();
  SelectToday();
  reloadmon();
  ApplyLanguage();
  LayoutControls();
  Picture1_Click(selected_.day);
  Picture1->setFocus();
  DataCenter.FormOpen[kNumber] = kSet;
}

Form4::~Form4() {
  // The toolkit may send leave events to parts of a window that is being destroyed.
  for (PictureView* picture : Picture5) picture->OnMouse({}, {});
  DataCenter.FormOpen[kNumber] = kClear;
}

void Form4::LoadActionPictures() {
  for (size_t i = 0; i < kPictures; ++i)
    ActionPicture[i] = LoadPicture("SchedulePic" + std::to_string(i + 1) + ".jpg");
}

void Form4::MakeChoosers() {
  Label1 = Named(new QLabel(Client()), "Label1");
  Label1->setStyleSheet(QStringLiteral("font-size: %1px; font-weight: bold;").arg(kHeaderSize));
  Combo1 = Named(new ChoiceList(Client()), "Combo1");
  Combo2 = Named(new ChoiceList(Client()), "Combo2");
  FillMonthChoosers(*Combo1, *Combo2);
  connect(Combo1, &QComboBox::currentIndexChanged, this,
          [this](int index) { Enter("Combo1_Click", [=, this] { Combo1_Click(index); }); });
  connect(Combo2, &QComboBox::currentIndexChanged, this,
          [this](int index) { Enter("Combo2_Click", [=, this] { Combo2_Click(index); }); });
  today_ = MakeScheduleButton(Client(), "Today", [this] { Today_Click(); });
  newEntry_ = MakeScheduleButton(Client(), "NewEntry", [this] { NewEntry_Click(); });
  for (QPushButton* button : {today_, newEntry_}) button->setMinimumHeight(kButtonHeight);
}

/// The action of the picture under the pointer is named beside the strip.
void Form4::MakeLegend() {
  legend_ = new QWidget(Client());
  auto* strip = new QHBoxLayout(legend_);
  strip->setContentsMargins(0, 0, 0, 0);
  strip->setSpacing(kLegendGap);
  Label6 = Named(new QLabel(legend_), "Label6");
  for (size_t i = 0; i < kPictures; ++i) {
    Picture5[i] = Named(new PictureView(legend_), "Picture5");
    Picture5[i]->setFixedSize(kPictureSize);
    Picture5[i]->SetPicture(ActionPicture[i]);
    Picture5[i]->OnMouse(
        "form4 Picture5_MouseMove",
        [this, code = std::string(1, kActionLetters[i])] {
          Label6->setText(QString::fromStdString(EventCodeText(code)));
        },
        [this] { Label6->clear(); });
    strip->addWidget(Picture5[i]);
  }
  strip->addWidget(Label6, 1);
}

void Form4::MakeMonth() {
  Picture1 = Named(new MonthGrid(Client(), "form4 Picture1", {kPlainDay, kToday, kSelectedDay}),
                   "Picture1");
  Picture1->OnClick([this](int day) { Picture1_Click(day); });
}

void Form4::MakePanels() {
  Frame1 = new ScheduleList(Client(), panels_, kListPanel,
                            {.edit = [this] { Command4_Click(); },
                             .remove = [this] { Command5_Click(); },
                             .close = [this] { Command3_Click(); }});
  Frame2 = new ScheduleDialog(
      Client(), panels_, kDialogPanel,
      {.save = [this] { Command1_Click(); }, .cancel = [this] { Command2_Click(); }});
  Frame4 = new DeletePanel(Client(), panels_, kDeletePanel,
                           [this](char choice) { Command6_Click(choice); });
  Frame1->OnPutAway([this] { Command3_Click(); });
  Frame2->OnPutAway([this] { Command2_Click(); });
  Frame4->OnPutAway([this] { HidePanel(*Frame4); });
  for (MovablePanel* panel : std::initializer_list<MovablePanel*>{Frame1, Frame2, Frame4}) {
    panel->hide();
    panel->TellPanels();
  }
}

/// The list of years ends before today. Such a year can't be chosen and none is selected, but its
/// month is shown all the same until another year is chosen.
void Form4::SelectToday() {
  const platform::DateTime now = platform::Now();
  selected_ = {now.year, now.month, now.day};
  SelectMonth(*Combo1, *Combo2, now.year, now.month);
}

void Form4::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(ScheduleText(texts::kScheduleCaption));
  ApplyChooserLanguage(*Combo1, *Combo2, *today_);
  newEntry_->setText(ScheduleText(texts::kScheduleNewEntry));
  Frame1->ApplyLanguage();
  Frame2->ApplyLanguage();
  Frame4->ApplyLanguage();
  TitleDialog();
  reNewTable();
  Frame1->ShowEntries(month_.days.at(static_cast<size_t>(selected_.day) - 1));
  Form_Resize();
}

/// The list and the dialog begin side by side below the month, and stuck to the lower edge.
void Form4::LayoutControls() {
  Label1->setGeometry(kHeaderPlace);
  Combo1->setGeometry(kYearPlace);
  Combo2->setGeometry(kMonthPlace);
  today_->setGeometry(kTodayPlace);
  newEntry_->setGeometry(kNewPlace);
  legend_->setGeometry(kLegendPlace);
  Picture1->setGeometry(kGridPlace);
  const QSize client = Client()->size();
  layout_.Resizeinit(client, {Label1, Combo1, Combo2, today_, newEntry_, legend_, Picture1});
  panels_.SetClientSize(client.width(), client.height());
  panels_.At(kListPanel).left = panels_.MakeXPointForm(kListPanel, 0);
  panels_.At(kListPanel).top =
      panels_.MakeYPointForm(kListPanel, client.height() - Frame1->height());
  panels_.At(kDialogPanel).left =
      panels_.MakeXPointForm(kDialogPanel, client.width() - Frame2->width());
  panels_.At(kDialogPanel).top =
      panels_.MakeYPointForm(kDialogPanel, client.height() - Frame2->height());
  Form_Resize();
}

void Form4::Form_Resize() {
  layout_.Apply(Client()->size());
  ReWindow();
}

void Form4::ReWindow() {
  panels_.SetClientSize(Client()->width(), Client()->height());
  panels_.ReWindow();
  Frame1->FollowPanels();
  Frame2->FollowPanels();
  Frame4->FollowPanels();
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

void Form4::reNewTable() {
  Label1->setText(MonthTitle(selected_.year, selected_.month));
  Picture1->ShowMonth(selected_.year, selected_.month);
  Picture1->SelectDay(selected_.day);
  for (int day = 1; day <= platform::DaysInMonth(selected_.year, selected_.month); ++day)
    Picture1->SetPictures(day, PicturesOf(day));
}

/// One picture for each action, however often it is planned, in the order of the legend.
std::vector<const QPixmap*> Form4::PicturesOf(int day) const {
  const auto& entries = month_.days.at(static_cast<size_t>(day) - 1);
  std::vector<const QPixmap*> pictures;
  for (size_t i = 0; i < kPictures; ++i) {
    if (Plans(entries, kActionLetters[i])) pictures.push_back(&ActionPicture[i]);
  }
  return pictures;
}

/// A list that is up goes on to the day that is selected now: its buttons act on that date.
void Form4::ShowSelectedMonth() {
  selected_.day = std::min(selected_.day, platform::DaysInMonth(selected_.year, selected_.month));
  renewdatetable();
  if (!Frame1->isHidden()) Picture1_Click(selected_.day);
}

/// What every change of the table ends with; the run list has been reloaded by then.
void Form4::ShowAfterChange() {
  renewdatetable();
  Picture1_Click(selected_.day);
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
  Picture1->setFocus();
}

void Form4::TitleDialog() {
  Frame2->SetTitle(ScheduleText(edited_ ? texts::kScheduleEdit : texts::kScheduleNewEntry));
}

void Form4::Combo1_Click(int index) {
  if (index < 0) return;
  selected_.year = kFirstChooserYear + index;
  ShowSelectedMonth();
}

void Form4::Combo2_Click(int index) {
  if (index < 0) return;
  selected_.month = index + 1;
  ShowSelectedMonth();
}

void Form4::Picture1_Click(int day) {
  selected_.day = day;
  Picture1->SelectDay(day);
  Frame1->SetTitle(QString::fromStdString(ScheduleDate(selected_.year, selected_.month, day)));
  Frame1->ShowEntries(month_.days.at(static_cast<size_t>(day) - 1));
  ReNewTodayEvent(selected_.year, selected_.month, day);
  ShowPanel(*Frame1);
}

void Form4::Today_Click() {
  SelectToday();
  ShowSelectedMonth();
}

void Form4::NewEntry_Click() {
  edited_.reset();
  Frame2->SetFields(ScheduleForm());
  TitleDialog();
  ShowPanel(*Frame2);
}

/// A new entry leaves the dialog up, for the next one; a refused one leaves it as it is.
void Form4::Command1_Click() {
  const ScheduleForm form = Frame2->Fields();
  const std::string refused =
      edited_ ? SaveEditedEntry(*edited_, form, selected_) : SaveNewEntry(form, selected_);
  if (!refused.empty()) return Tell(refused);
  if (edited_) HidePanel(*Frame2);
  ShowAfterChange();
}

void Form4::Command2_Click() { HidePanel(*Frame2); }

void Form4::Command3_Click() {
  HidePanel(*Frame1);
  edited_.reset();
  TitleDialog();
}

void Form4::Command4_Click() {
  const std::optional<int> number = Frame1->SelectedNumber();
  ScheduleForm form = Frame2->Fields();
  if (!number || !OpenEntry(*number, form)) return;
  edited_ = number;
  Frame2->SetFields(form);
  TitleDialog();
  ShowPanel(*Frame2);
}

void Form4::Command5_Click() {
  const std::optional<int> number = Frame1->SelectedNumber();
  if (!number) return;
  const std::string time = Frame1->SelectedTime();
  const Deletion deletion = DeleteEntry(*number);
  if (deletion == Deletion::Deleted) ShowAfterChange();
  if (deletion != Deletion::Ask) return;
  deleting_ = *number;
  deletingDay_ = selected_;
  deletingTime_ = time;
  CentreDeletePanel();
  ShowPanel(*Frame4);
}

/// The step of a drag to where it stands makes it forget the edges to which it was dragged before.
void Form4::CentreDeletePanel() {
  panels_.At(kDeletePanel).left = (Client()->width() - Frame4->width()) / 2;
  panels_.At(kDeletePanel).top = (Client()->height() - Frame4->height()) / 2;
  panels_.Grab(0, 0);
  panels_.Drag(kDeletePanel, 0, 0);
}

void Form4::Command6_Click(char choice) {
  HidePanel(*Frame4);
  DeleteByChoice(choice, deleting_, deletingDay_, deletingTime_);
  ShowAfterChange();
}

}  // namespace varek

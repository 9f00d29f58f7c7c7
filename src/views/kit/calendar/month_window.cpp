#include "views/kit/calendar/month_window.h"

#include <QLabel>
#include <QPushButton>
#include <algorithm>
#include <string>

#include "platform/time/calendar.h"
#include "platform/time/clock.h"
#include "views/kit/calendar/month_choosers.h"
#include "views/kit/controls/choice_list.h"
#include "views/kit/controls/push_button.h"
#include "views/kit/windows/movable_panel.h"

namespace varek {

namespace {

constexpr int kTitleSize = 18;  ///< pixels, of its letters

}  // namespace

MonthWindow::MonthWindow(int formNumber, QSize start, QSize least, std::vector<Panel> panels,
                         WhenResized rule)
    : ViewWindow(formNumber, start, least),
      panels_(std::move(panels), rule),
      name_("form" + std::to_string(formNumber)) {
  MakeChoosers();
}

void MonthWindow::MakeChoosers() {
  title_ = new QLabel(Client());
  title_->setStyleSheet(QStringLiteral("font-size: %1px; font-weight: bold;").arg(kTitleSize));
  years_ = new ChoiceList(Client());
  months_ = new ChoiceList(Client());
  FillMonthChoosers(*years_, *months_);
  connect(years_, &QComboBox::currentIndexChanged, this,
          [this](int index) { Enter("Combo1_Click", [=, this] { ChooseYear(index); }); });
  connect(months_, &QComboBox::currentIndexChanged, this,
          [this](int index) { Enter("Combo2_Click", [=, this] { ChooseMonth(index); }); });
  today_ = MakeButton(Client(), name_ + " Today_Click", [this] { GoToToday(); });
  today_->setMinimumHeight(kButtonHeight);
}

void MonthWindow::MakeDays(const MonthGridColors& colors) {
  days_ = new MonthGrid(Client(), name_ + " Picture1", colors);
  days_->OnClick([this](int day) { ClickDay(day); });
}

void MonthWindow::AddPanel(MovablePanel& panel) { shownPanels_.push_back(&panel); }

void MonthWindow::LayoutMonth(const MonthPlaces& places, const std::vector<QWidget*>& others) {
  title_->setGeometry(places.title);
  years_->setGeometry(places.years);
  months_->setGeometry(places.months);
  today_->setGeometry(places.today);
  days_->setGeometry(places.days);
  std::vector<QWidget*> parts{title_, years_, months_, today_, days_};
  parts.insert(parts.end(), others.begin(), others.end());
  layout_.Resizeinit(Client()->size(), parts);
}

void MonthWindow::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  ApplyChooserLanguage(*years_, *months_, *today_);
}

void MonthWindow::SelectToday() {
  const platform::DateTime now = platform::Now();
  selected_ = {now.year, now.month, now.day};
  SelectMonth(*years_, *months_, now.year, now.month);
}

void MonthWindow::RepaintMonth() {
  title_->setText(MonthTitle(selected_.year, selected_.month));
  days_->ShowMonth(selected_.year, selected_.month);
  days_->SelectDay(selected_.day);
  for (int day = 1; day <= platform::DaysInMonth(selected_.year, selected_.month); ++day)
    days_->SetPictures(day, PicturesOf(day));
}

void MonthWindow::Form_Resize() {
  layout_.Apply(Client()->size());
  ReWindow();
}

void MonthWindow::ReWindow() {
  panels_.SetClientSize(Client()->width(), Client()->height());
  panels_.ReWindow();
  for (MovablePanel* panel : shownPanels_) panel->FollowPanels();
}

void MonthWindow::ChooseYear(int index) {
  if (index < 0) return;
  selected_.year = kFirstChooserYear + index;
  GoToMonth();
}

void MonthWindow::ChooseMonth(int index) {
  if (index < 0) return;
  selected_.month = index + 1;
  GoToMonth();
}

void MonthWindow::GoToToday() {
  SelectToday();
  ShowMonth();
}

void MonthWindow::GoToMonth() {
  selected_.day = std::min(selected_.day, platform::DaysInMonth(selected_.year, selected_.month));
  ShowMonth();
}

}  // namespace varek

#include "views/kit/calendar/month_calendar.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <algorithm>
#include <utility>

#include "drawing/palette.h"
#include "platform/errors/guard.h"
#include "platform/time/calendar.h"
#include "platform/time/events.h"
#include "texts/text_numbers.h"
#include "views/kit/calendar/calendar_page.h"
#include "views/kit/calendar/day_keys.h"
#include "views/kit/calendar/month_choosers.h"
#include "views/kit/controls/keys.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/shown.h"
#include "views/kit/looks/style.h"

namespace varek {

namespace {

constexpr int kFontSize = 6;  ///< points
constexpr int kHeaderHeight = 24;
constexpr int kButtonWidth = 28;
constexpr QSize kStartSize{224, 192};
constexpr QSize kLeastSize{154, 136};

}  // namespace

MonthCalendar::MonthCalendar(QWidget* parent, std::string name, std::function<void()> chosen)
    : QWidget(parent),
      name_(std::move(name)),
      chosen_(std::move(chosen)),
      previous_(QStringLiteral("\u2039"), this),
      next_(QStringLiteral("\u203a"), this) {
  setFocusPolicy(Qt::StrongFocus);
  for (QPushButton* button : {&previous_, &next_}) {
    button->setFocusPolicy(Qt::NoFocus);
    button->setStyleSheet(QStringLiteral("padding: 0px"));
  }
  const auto onClick = [this](QPushButton& button, void (MonthCalendar::*step)()) {
    connect(&button, &QPushButton::clicked, this,
            [this, step] { platform::Guarded(name_, [this, step] { (this->*step)(); }); });
  };
  onClick(previous_, &MonthCalendar::Lastmonth);
  onClick(next_, &MonthCalendar::Nextmonth);
  ApplyLanguage();
  datetableinit();
  resize(kStartSize);
}

void MonthCalendar::datetableinit() {
  const platform::DateTime now = platform::Now();
  year_ = now.year;
  month_ = now.month;
  RepaintTable(now.day);
}

void MonthCalendar::RepaintTable(int day) {
  day_ = std::clamp(day, 1, platform::DaysInMonth(year_, month_));
  today_ = platform::Now();
  update();
}

void MonthCalendar::Lastmonth() {
  if (--month_ < 1) {
    month_ = 12;
    --year_;
  }
  RepaintTable(day_);
}

void MonthCalendar::Nextmonth() {
  if (++month_ > 12) {
    month_ = 1;
    ++year_;
  }
  RepaintTable(day_);
}

void MonthCalendar::ApplyLanguage() {
  previous_.setToolTip(Shown(texts::kPreviousMonth));
  next_.setToolTip(Shown(texts::kNextMonth));
  for (QPushButton* button : {&previous_, &next_}) button->setAccessibleName(button->toolTip());
  update();
}

QSize MonthCalendar::sizeHint() const { return kStartSize; }
QSize MonthCalendar::minimumSizeHint() const { return kLeastSize; }

QRect MonthCalendar::CellRect(int cell) const {
  const auto columnLeft = [this](int column) { return column * width() / kCalendarColumns; };
  const auto rowTop = [this](int row) {
    return kHeaderHeight + row * (height() - kHeaderHeight) / kCalendarRows;
  };
  const int column = cell % kCalendarColumns;
  const int row = cell / kCalendarColumns;
  return {QPoint(columnLeft(column), rowTop(row)),
          QPoint(columnLeft(column + 1) - 1, rowTop(row + 1) - 1)};
}

/// From the event loop: the choice may wait, and the calendar may go meanwhile.
void MonthCalendar::Choose() {
  platform::Post(name_, [calendar = QPointer(this)] {
    if (!calendar) return;
    const std::function<void()> chosen = calendar->chosen_;
    chosen();
  });
}

void MonthCalendar::ChooseAt(QPoint at) {
  for (int cell = 0; cell < kCalendarCells; ++cell) {
    const int day = DayOfCell(year_, month_, cell);
    if (day == 0 || !CellRect(cell).contains(at)) continue;
    RepaintTable(day);
    return Choose();
  }
}

void MonthCalendar::MoveDay(int days) {
  const int day = day_ + days;
  const int length = platform::DaysInMonth(year_, month_);
  if (day > length) {
    Nextmonth();
    RepaintTable(day - length);
  } else if (day < 1) {
    Lastmonth();
    RepaintTable(day + platform::DaysInMonth(year_, month_));
  } else {
    RepaintTable(day);
  }
}

bool MonthCalendar::HandleKey(int key) {
  if (const int days = DaysOfArrow(key)) {
    MoveDay(days);
  } else if (key == Qt::Key_PageUp) {
    Lastmonth();
  } else if (key == Qt::Key_PageDown) {
    Nextmonth();
  } else if (IsClickKey(key)) {
    Choose();
  } else {
    return false;
  }
  return true;
}

void MonthCalendar::keyPressEvent(QKeyEvent* event) {
  bool handled = false;
  platform::Guarded(name_, [&] { handled = HandleKey(event->key()); });
  if (!handled) QWidget::keyPressEvent(event);
}

void MonthCalendar::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) ChooseAt(event->position().toPoint());
}

void MonthCalendar::resizeEvent(QResizeEvent*) {
  previous_.setGeometry(0, 0, kButtonWidth, kHeaderHeight - 2);
  next_.setGeometry(width() - kButtonWidth, 0, kButtonWidth, kHeaderHeight - 2);
}

void MonthCalendar::focusInEvent(QFocusEvent*) { update(); }
void MonthCalendar::focusOutEvent(QFocusEvent*) { update(); }

bool MonthCalendar::IsToday(int day) const {
  return day == today_.day && month_ == today_.month && year_ == today_.year;
}

void MonthCalendar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintHeader(painter);
  QFont small = font();
  small.setPointSize(kFontSize);
  painter.setFont(small);
  for (int cell = 0; cell < kCalendarCells; ++cell) PaintCell(painter, cell);
  if (!hasFocus()) return;
  painter.setPen(ToQColor(palette::kAccent));
  painter.drawRect(rect().adjusted(0, kHeaderHeight, -1, -1));
}

void MonthCalendar::PaintHeader(QPainter& painter) const {
  const QString text = MonthTitle(year_, month_);
  const QRect room(kButtonWidth, 0, width() - 2 * kButtonWidth, kHeaderHeight - 2);
  painter.setFont(FittingFont(font(), text, room.size()));
  painter.setPen(ToQColor(palette::kText));
  painter.drawText(room, kFittingText, text);
}

void MonthCalendar::PaintCell(QPainter& painter, int cell) const {
  const int day = DayOfCell(year_, month_, cell);
  const bool selected = day != 0 && day == day_;
  const QRect place = CellRect(cell);
  const QColor ink = selected ? Qt::white : ToQColor(palette::kFace);
  painter.fillRect(place, ToQColor(selected ? kSelectedDayColor : CellColor(cell)));
  painter.setPen(ink);
  if (cell < kCalendarColumns) {
    const auto name = static_cast<size_t>(cell);
    painter.drawText(place, Qt::AlignCenter, Shown(texts::kHeadSunday + name));
  }
  if (day == 0) return;
  painter.drawText(place, Qt::AlignCenter, QString::number(day));
  if (!IsToday(day)) return;
  painter.setPen(QPen(ink, 2));
  painter.drawRect(place.adjusted(2, 2, -2, -2));
}

}  // namespace varek

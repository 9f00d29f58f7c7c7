#include "views/kit/calendar/month_grid.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "drawing/palette.h"
#include "platform/errors/guard.h"
#include "platform/time/calendar.h"
#include "platform/time/clock.h"
#include "texts/text_numbers.h"
#include "views/kit/calendar/calendar_page.h"
#include "views/kit/calendar/day_keys.h"
#include "views/kit/controls/keys.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/shown.h"
#include "views/kit/looks/style.h"

namespace varek {

namespace {

constexpr int kColumns = kCalendarColumns;
constexpr int kWeeks = kMonthGridCells / kColumns;
/// The calendar page counts its heads as cells; here they stand outside.
constexpr int kHeadCells = kCalendarCells - kMonthGridCells;

constexpr int kHeadHeight = 22;
constexpr int kNumberWidth = 24;  ///< of the column in which a cell's number stands
constexpr int kNumberSize = 13;   ///< pixels
constexpr int kMargin = 3;

/// Where part `part` of `parts` equal ones begins, so that each ends where the next one begins.
int PartOf(int length, int part, int parts) { return length * part / parts; }

}  // namespace

MonthGrid::MonthGrid(QWidget* parent, std::string name, const MonthGridColors& colors)
    : QWidget(parent), name_(std::move(name)), colors_(colors) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  const platform::DateTime now = platform::Now();
  ShowMonth(now.year, now.month);
}

void MonthGrid::ShowMonth(int year, int month) {
  const platform::DateTime now = platform::Now();
  year_ = year;
  month_ = month;
  today_ = now.year == year && now.month == month ? now.day : 0;
  focused_ = std::min(focused_, platform::DaysInMonth(year, month));
  pictures_ = {};
  Hover({});
  update();
}

void MonthGrid::SetPictures(int day, std::vector<const QPixmap*> pictures) {
  pictures_.at(static_cast<size_t>(day) - 1) = std::move(pictures);
  update();
}

void MonthGrid::SelectDay(int day) {
  selected_ = day;
  if (day >= 1 && day <= platform::DaysInMonth(year_, month_)) focused_ = day;
  update();
}

void MonthGrid::OnClick(std::function<void(int)> clicked) { clicked_ = std::move(clicked); }

void MonthGrid::OnHover(std::function<void(int, int)> hovered) { hovered_ = std::move(hovered); }

QRect MonthGrid::CellRect(int cell) const {
  const int column = cell % kColumns;
  const int week = cell / kColumns;
  const int room = height() - kHeadHeight;
  return {QPoint(PartOf(width(), column, kColumns), kHeadHeight + PartOf(room, week, kWeeks)),
          QPoint(PartOf(width(), column + 1, kColumns) - 1,
                 kHeadHeight + PartOf(room, week + 1, kWeeks) - 1)};
}

int MonthGrid::CellAt(QPoint point) const {
  for (int cell = 0; cell < kMonthGridCells; ++cell) {
    if (CellRect(cell).contains(point)) return cell;
  }
  return -1;
}

int MonthGrid::CellOf(int day) const { return CellOfDay(year_, month_, day) - kHeadCells; }

int MonthGrid::DayIn(int cell) const { return DayOfCell(year_, month_, cell + kHeadCells); }

const std::vector<const QPixmap*>& MonthGrid::PicturesOf(int day) const {
  return pictures_.at(static_cast<size_t>(day) - 1);
}

std::vector<QRect> MonthGrid::PictureRects(int day) const {
  const QRect cell = CellRect(CellOf(day));
  const QRect room = cell.adjusted(kNumberWidth, kMargin, -kMargin, -kMargin);
  std::vector<QRect> rects;
  QPoint at = room.topLeft();
  int rowHeight = 0;
  for (const QPixmap* picture : PicturesOf(day)) {
    if (at.x() > room.left() && at.x() + picture->width() - 1 > room.right()) {
      at = {room.left(), at.y() + rowHeight};
      rowHeight = 0;
    }
    rects.emplace_back(at, picture->size());
    at.rx() += picture->width();
    rowHeight = std::max(rowHeight, picture->height());
  }
  return rects;
}

MonthGrid::Spot MonthGrid::SpotAt(QPoint point) const {
  const int cell = CellAt(point);
  const int day = cell < 0 ? 0 : DayIn(cell);
  if (day == 0) return {};
  const std::vector<QRect> rects = PictureRects(day);
  for (size_t i = 0; i < rects.size(); ++i) {
    if (rects[i].contains(point)) return {day, static_cast<int>(i)};
  }
  return {};
}

void MonthGrid::Hover(Spot spot) {
  if (spot == hover_) return;
  hover_ = spot;
  if (!hovered_) return;
  platform::Guarded(name_ + "_MouseMove", [&] { hovered_(spot.day, spot.picture); });
}

void MonthGrid::Click(int day) {
  focused_ = day;
  update();
  if (clicked_) platform::Guarded(name_ + "_Click", [&] { clicked_(day); });
}

void MonthGrid::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const int cell = CellAt(event->position().toPoint());
  if (cell >= 0 && DayIn(cell) != 0) Click(DayIn(cell));
}

void MonthGrid::mouseMoveEvent(QMouseEvent* event) { Hover(SpotAt(event->position().toPoint())); }

void MonthGrid::leaveEvent(QEvent*) { Hover({}); }

/// A step that would leave the month is not taken: which months there are is the view's matter.
void MonthGrid::MoveFocus(int days) {
  const int day = focused_ + days;
  if (day < 1 || day > platform::DaysInMonth(year_, month_)) return;
  focused_ = day;
  update();
}

bool MonthGrid::HandleKey(int key) {
  if (const int days = DaysOfArrow(key)) {
    MoveFocus(days);
  } else if (IsClickKey(key)) {
    Click(focused_);
  } else {
    return false;
  }
  return true;
}

void MonthGrid::keyPressEvent(QKeyEvent* event) {
  if (!HandleKey(event->key())) QWidget::keyPressEvent(event);
}

void MonthGrid::focusInEvent(QFocusEvent*) { update(); }
void MonthGrid::focusOutEvent(QFocusEvent*) { update(); }

const DayColors& MonthGrid::ColorsOf(int day) const {
  if (day == 0) return colors_.plain;
  if (day == selected_) return colors_.selected;
  return day == today_ ? colors_.today : colors_.plain;
}

void MonthGrid::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(palette::kPanelEdge));
  PaintHeads(painter);
  for (int cell = 0; cell < kMonthGridCells; ++cell) PaintCell(painter, cell);
  if (!hasFocus()) return;
  painter.setPen(QPen(ToQColor(palette::kAccent), 2));
  painter.drawRect(CellRect(CellOf(focused_)).adjusted(1, 1, -1, -1));
}

void MonthGrid::PaintHeads(QPainter& painter) const {
  painter.fillRect(0, 0, width(), kHeadHeight, ToQColor(palette::kPanel));
  painter.setPen(ToQColor(palette::kText));
  for (int column = 0; column < kColumns; ++column) {
    const QString name = Shown(texts::kHeadSunday + static_cast<size_t>(column));
    const QRect cell = CellRect(column);
    const QRect room(cell.left(), 0, cell.width(), kHeadHeight);
    painter.setFont(FittingFont(font(), name, room.size()));
    painter.drawText(room, kFittingText, name);
  }
}

/// One pixel of each cell's right and lower edge is left out, as the line between the cells.
void MonthGrid::PaintCell(QPainter& painter, int cell) const {
  const int day = DayIn(cell);
  const QRect place = CellRect(cell).adjusted(0, 0, -1, -1);
  painter.fillRect(place, ToQColor(ColorsOf(day).back));
  if (day == 0) return;
  painter.save();
  painter.setClipRect(place);
  PaintDay(painter, day);
  painter.restore();
}

void MonthGrid::PaintDay(QPainter& painter, int day) const {
  QFont number = font();
  number.setPixelSize(kNumberSize);
  number.setBold(true);
  painter.setFont(number);
  painter.setPen(ToQColor(ColorsOf(day).ink));
  const QPoint corner = CellRect(CellOf(day)).topLeft() + QPoint(kMargin, kMargin);
  painter.drawText(QRect(corner, QSize(kNumberWidth, kNumberSize + kMargin)),
                   Qt::AlignLeft | Qt::AlignVCenter, QString::number(day));
  const std::vector<QRect> rects = PictureRects(day);
  for (size_t i = 0; i < rects.size(); ++i)
    painter.drawPixmap(rects[i].topLeft(), *PicturesOf(day)[i]);
}

}  // namespace varek

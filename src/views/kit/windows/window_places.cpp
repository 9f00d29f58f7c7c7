#include "views/kit/windows/window_places.h"

#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace varek {

namespace {

constexpr int kMargin = 12;  ///< between a window and the next, or the edge of the screen
constexpr int kCountdownStrip = 240;
constexpr int kNoticeWidth = 580;
constexpr QSize kUsualFrame(4, 36);

/// As std::clamp, for a range that may be too small: its beginning counts then.
int Within(int value, int from, int to) { return std::max(from, std::min(value, to)); }

}  // namespace

QRect RoomAround(const QWidget& window) { return window.screen()->availableGeometry(); }

QPoint PlaceCountdown(const QRect& room, QSize size, Side side) {
  const int middle = room.center().x();
  const int left = side == Side::Left ? middle - kMargin / 2 - size.width() : middle + kMargin / 2;
  return {left, room.top() + kMargin};
}

QRect NoticeCorner(const QRect& room) {
  QRect corner = room.adjusted(kMargin, kCountdownStrip, -kMargin, -kMargin);
  corner.setLeft(std::max(corner.left(), corner.right() + 1 - kNoticeWidth));
  return corner;
}

QPoint PlaceNotice(const QRect& room, QSize size) {
  const QRect corner = NoticeCorner(room);
  return {std::max(room.left(), corner.right() + 1 - size.width()),
          std::max(corner.top(), corner.bottom() + 1 - size.height())};
}

QPoint PlaceBox(const QRect& room, const QRect& asker, QSize size) {
  QRect box({}, size);
  box.moveCenter(asker.center());
  box.moveLeft(Within(box.left(), room.left(), room.right() + 1 - size.width()));
  box.moveTop(Within(box.top(), room.top() + kCountdownStrip, room.bottom() + 1 - size.height()));
  const QRect corner = NoticeCorner(room).adjusted(-kMargin, -kMargin, 0, 0);
  if (box.intersects(corner))
    box.moveRight(std::max(room.left() + size.width(), corner.left()) - 1);
  return box.topLeft();
}

void PlaceOnAsker(QWidget& dialogue) {
  dialogue.adjustSize();
  const QWidget* asker = dialogue.parentWidget();
  const QRect room = RoomAround(asker ? *asker : dialogue);
  const QRect place = asker ? asker->window()->frameGeometry() : room;
  dialogue.move(PlaceBox(room, place, SizeWithFrame(dialogue)));
}

QSize SizeWithFrame(const QWidget& window) {
  const QSize frame = window.frameGeometry().size() - window.size();
  return window.size() + (window.isVisible() ? frame : kUsualFrame);
}

}  // namespace varek

// Where the windows stand that come up by themselves, so that none ever covers another: the
// countdowns beside each other in a strip along the top of the screen, the notices (the warnings of
// events, and the hint about saving) in the lower right corner, from where they grow upwards, and
// message boxes on the window that asked, moved out of both. Each process can place its own windows
// without knowing those of the others, since the places are kept free whether they are used or not.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

namespace varek {

enum class Side { Left, Right };

/// The part of the screen of `window` that is free for windows.
QRect RoomAround(const QWidget& window);

/// The upper left corner of a countdown of `size`. The two stand at either side of the middle.
QPoint PlaceCountdown(const QRect& room, QSize size, Side side);

/// The largest notice, with its frame, that there is room for.
QRect NoticeCorner(const QRect& room);

/// The upper left corner of a notice of `size`, its frame included.
QPoint PlaceNotice(const QRect& room, QSize size);

/// The upper left corner of a box of `size` on `asker`.
QPoint PlaceBox(const QRect& room, const QRect& asker, QSize size);

/// Moves a dialogue that is not shown yet onto the window that it belongs to, or to the middle of
/// the screen when it has none.
void PlaceOnAsker(QWidget& dialogue);

/// The size of `window` with its frame, which is guessed before the desktop has drawn one.
QSize SizeWithFrame(const QWidget& window);

}  // namespace varek

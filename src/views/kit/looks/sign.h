// The signs beside the texts of message boxes and of the sidecars' windows, drawn at any size.
#pragma once

#include <QPixmap>

namespace varek {

enum class Sign {
  Warning,  ///< a triangle in the colour of a warning
  Hint,     ///< a disc in the accent colour
};

/// A square picture, `side` logical pixels wide and sharp on a screen with `ratio` pixels to each.
QPixmap SignPicture(Sign sign, int side, qreal ratio = 1);

}  // namespace varek

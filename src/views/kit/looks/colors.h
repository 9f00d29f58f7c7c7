// The program's colours as the toolkit's.
#pragma once

#include <QColor>

#include "platform/picture/surface.h"

namespace varek {

inline QColor ToQColor(platform::Color color) { return {color.red, color.green, color.blue}; }

}  // namespace varek

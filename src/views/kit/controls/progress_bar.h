// The progress bar that every view draws: a picture of which the left part shows.
#pragma once

#include "platform/picture/surface.h"

namespace varek {

/// Stretches the left `percent` (0 to 100) of `source`, from its point (1, 1), over the same part
/// of `target`, at (x, y). 0 draws nothing.
void linepsent(int x, int y, double percent, platform::Surface& target,
               const platform::Surface& source);

}  // namespace varek

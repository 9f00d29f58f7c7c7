// The tip beside the pointer: what the colour under it stands for, and the reading there.
#pragma once

#include <optional>
#include <string>

#include "platform/picture/surface.h"
#include "views/oscilloscope/curves/scope_data.h"
#include "views/oscilloscope/curves/scope_view.h"

namespace varek {

struct ScopeTip {
  int code = 0;      ///< the colour code of the curve or the event
  std::string text;  ///< in lines
};

/// The name of curve 0 to 5 in the present language.
const std::string& CurveName(int curve);

/// The tip for the pointer at (x, y) of the plot, if it rests on a curve or an event.
std::optional<ScopeTip> TipAt(const platform::Surface& plot, int x, int y, const ScopeData& data,
                              const ScopeView& view);

/// The back colour's complement.
platform::Color TipTextColor(platform::Color back);

/// Where a tip of `length` pixels begins beside a pointer at `pointer`, in one direction of a
/// surface of `room`: there, or before it where it would leave the surface.
int TipPlace(int pointer, int length, int room);

}  // namespace varek

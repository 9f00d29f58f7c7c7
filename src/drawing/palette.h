// The colours of the program's looks, for windows and for the pictures made at build time: a calm
// dark panel with one accent.
#pragma once

#include "platform/picture/surface.h"

namespace varek::palette {

constexpr platform::Color kWindow{24, 28, 34};     ///< behind everything
constexpr platform::Color kPanel{32, 38, 46};      ///< plates, tabs, frames
constexpr platform::Color kPanelEdge{58, 68, 80};  ///< outlines of plates
constexpr platform::Color kFace{13, 17, 22};       ///< dial faces, lists, entry fields
constexpr platform::Color kScale{226, 232, 238};   ///< ticks and numerals
constexpr platform::Color kText{214, 222, 230};    ///< captions
constexpr platform::Color kMuted{138, 150, 163};   ///< secondary text, minor ticks
constexpr platform::Color kAccent{0, 200, 210};    ///< the one accent: hover, selection, rims
constexpr platform::Color kReading{0, 255, 255};   ///< values on the dial panel
constexpr platform::Color kGood{64, 190, 110};
constexpr platform::Color kWarning{240, 176, 48};
constexpr platform::Color kAlarm{226, 66, 58};

}  // namespace varek::palette

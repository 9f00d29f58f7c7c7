#include "views/kit/controls/progress_bar.h"

#include <algorithm>

#include "platform/text/text.h"

namespace varek {

namespace {

/// The picture is read from here on: its first column and row are its outline.
constexpr int kSourceOrigin = 1;

double PartOf(int width, double percent) { return platform::RoundHalfEven(width * percent / 100); }

}  // namespace

void linepsent(int x, int y, double percent, platform::Surface& target,
               const platform::Surface& source) {
  // Beginning at (1, 1), the full size would reach beyond the picture and leave the bar's end bare.
  const double width =
      std::min<double>(PartOf(source.Width(), percent), source.Width() - kSourceOrigin);
  const double height = source.Height() - kSourceOrigin;
  target.Stretch({double(x), double(y), PartOf(target.Width(), percent), double(target.Height())},
                 source, {kSourceOrigin, kSourceOrigin, width, height});
}

}  // namespace varek

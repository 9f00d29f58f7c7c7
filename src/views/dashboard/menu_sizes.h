// The sizes of the ten magnifying menu pictures: which one the pointer is on, and how they grow and
// shrink towards that, tick by tick. All sizes and places are in pixels.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace varek {

constexpr int kMenuItems = 10;
constexpr int kLargestMenuPicture = 100;

class MenuSizes final {
 public:
  MenuSizes();

  /// The pointer is on `item` (0 to 9), `y` below its upper edge: it is to be the largest and its
  /// neighbours larger than the rest. On its lowest tenth all are to shrink instead, so that
  /// leaving downwards collapses the strip.
  void Hover(int item, int y);
  /// All are to shrink.
  void Collapse();

  /// Each picture goes a fifth of the way; true when all have arrived.
  bool Tick();

  /// Edge length.
  int Size(int item) const { return sizes_.at(static_cast<size_t>(item)); }
  /// The item to which a pointer at `x` of a window of `windowWidth` belongs, when it is over the
  /// picture of `item`.
  int ItemUnder(int item, int x, int windowWidth) const;
  /// Left edges in a window of `windowWidth`, around its middle.
  std::array<int, kMenuItems> Lefts(int windowWidth) const;

 private:
  std::array<int16_t, kMenuItems> sizes_;
  std::array<int16_t, kMenuItems> wanted_;
};

}  // namespace varek

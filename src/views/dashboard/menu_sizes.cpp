#include "views/dashboard/menu_sizes.h"

#include <cstdlib>
#include <numeric>

#include "platform/text/text.h"

namespace varek {

namespace {

constexpr int16_t kSmall = 32;
/// By the distance from the item under the pointer.
constexpr std::array<int16_t, 3> kMagnified{kLargestMenuPicture, 70, 50};
constexpr double kFraction = 5;
constexpr double kLowestTenth = 0.9;

/// The last two pixels, of which a fifth rounds to nothing, go at once.
int16_t Towards(int16_t size, int16_t wanted) {
  const int16_t next = platform::RoundToInt16(size + (wanted - size) / kFraction);
  return next == size ? wanted : next;
}

int16_t WantedAt(int distance) {
  if (distance >= static_cast<int>(kMagnified.size())) return kSmall;
  return kMagnified[static_cast<size_t>(distance)];
}

}  // namespace

MenuSizes::MenuSizes() {
  sizes_.fill(kSmall);
  wanted_.fill(kSmall);
}

void MenuSizes::Hover(int item, int y) {
  if (y > Size(item) * kLowestTenth) return Collapse();
  for (int other = 0; other < kMenuItems; ++other)
    wanted_[static_cast<size_t>(other)] = WantedAt(std::abs(other - item));
}

void MenuSizes::Collapse() { wanted_.fill(kSmall); }

bool MenuSizes::Tick() {
  for (size_t item = 0; item < kMenuItems; ++item)
    sizes_[item] = Towards(sizes_[item], wanted_[item]);
  return sizes_ == wanted_;
}

/// The last picture does not count: the middle is that of the first nine.
std::array<int, kMenuItems> MenuSizes::Lefts(int windowWidth) const {
  const int sum = std::accumulate(sizes_.begin(), sizes_.end() - 1, 0);
  std::array<int, kMenuItems> lefts{};
  const int middle = windowWidth / 2;
  lefts[0] = platform::RoundToInt16(middle - sum / 2.0);
  for (size_t item = 1; item < kMenuItems; ++item) lefts[item] = lefts[item - 1] + sizes_[item - 1];
  return lefts;
}

/// The last picture moves away to the right as it grows, since the middle does not count it, and
/// the one before it comes below the pointer. The place where it rests stays its own as long as it
/// is the larger of the two, or only its right edge could be clicked.
int MenuSizes::ItemUnder(int item, int x, int windowWidth) const {
  constexpr int kLast = kMenuItems - 1;
  const int restingLeft = MenuSizes().Lefts(windowWidth)[kLast];
  return Size(kLast) > Size(kLast - 1) && x >= restingLeft ? kLast : item;
}

}  // namespace varek

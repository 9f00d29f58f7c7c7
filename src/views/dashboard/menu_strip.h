// The strip of ten magnifying menu pictures on the dashboard. The pictures lie on the window above
// the strip's plate, as they grow beyond it; the plate is dragged by its empty part and takes them
// along.
#pragma once

#include <QPixmap>
#include <QPoint>
#include <QWidget>
#include <array>
#include <functional>
#include <memory>

#include "platform/time/timers.h"
#include "views/dashboard/menu_sizes.h"

namespace varek {

class Bubble;

class MenuStrip final {
 public:
  /// Loads the pictures; a missing one throws RuntimeError 53. `open` is called with the item
  /// (0 to 9) from the event loop, after the release.
  MenuStrip(QWidget* window, Bubble& bubble, std::function<void(int item)> open);
  ~MenuStrip();

  /// Puts the plate to the middle of the window's upper edge, or where it was dragged to, and the
  /// pictures on it. Of the height above the tabs, `room`, it takes no more than there is: the rest
  /// of it lies above the window's edge.
  void Place(int room);
  /// Names of the items in the present language, for readers of the screen.
  void ApplyLanguage();
  /// No tick comes any more.
  void Stop() { growTimer_.SetInterval(0); }

 private:
  class Plate;
  class ItemView;

  QWidget* Item(int item) const;
  int ItemAt(QPoint at) const;
  void Hover(int item, int y);
  void Leave();
  void GrowTick();
  void PlacePictures();
  void MovePlate(QPoint wanted);

  QWidget* window_;
  Bubble& bubble_;
  std::function<void(int)> open_;
  MenuSizes sizes_;
  QPoint home_;     ///< of the plate
  QPoint dragged_;  ///< how far the plate is from its home
  Plate* plate_;
  std::array<ItemView*, kMenuItems> items_;
  std::array<QPixmap, kMenuItems> pictures_;
  platform::Timer growTimer_;
};

}  // namespace varek

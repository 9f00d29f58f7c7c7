// Panels that are dragged about inside a window and stick to its edges and to each other. Plain
// rectangles: the view moves its widgets to where the panels say. All sizes are pixels of the
// client area.
//
// While a panel is dragged, the view tells Grab where it was taken and Drag where the pointer is
// now; after a change of size, and when a panel is shown, it calls ReWindow.
#pragma once

#include <cstddef>
#include <vector>

#include "core/data_center.h"

namespace varek {

/// Sticks when nearer than this.
constexpr int kSnapDistance = 10;

/// No place to stick at.
constexpr int kNoSnap = -1;

/// A panel on an edge of a window that grows: it goes with the edge, or stays where it is and is
/// only held inside.
enum class WhenResized { FollowEdges, StayInside };

struct Panel {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool visible = true;
};

class StickyPanels final {
 public:
  StickyPanels(std::vector<Panel> panels, WhenResized rule);

  /// By number, for reading, and for placing or showing a panel by other means than dragging.
  Panel& At(size_t panel) { return panels_.at(panel); }
  void SetClientSize(int width, int height);

  /// The pointer takes hold of the panel at (x, y) of the panel itself.
  void Grab(int x, int y);
  /// One step of the drag: the pointer is at (x, y) of the panel as it stands now.
  void Drag(size_t moving, int x, int y);
  /// Keeps every panel inside the client area, and on its edges where the rule says so.
  void ReWindow();

  /// The left at which `moving` sticks to `other` when it is to stand at `left`, or -1. Its right
  /// edge comes before its left one; both must overlap in height.
  int MakeXPoint(size_t moving, size_t other, int left) const;
  /// The left at which the panel sticks to the client area, right edge first, or -1. Marks it as
  /// stuck to that edge.
  int MakeXPointForm(size_t panel, int left);
  int MakeYPoint(size_t moving, size_t other, int top) const;
  int MakeYPointForm(size_t panel, int top);

 private:
  int SnappedLeft(size_t moving, int left);
  int SnappedTop(size_t moving, int top);
  void ForgetEdgesMovedFrom(size_t moving);
  void PutOnEdges();

  std::vector<Panel> panels_;
  WhenResized rule_;
  int clientWidth_ = 0;
  int clientHeight_ = 0;
  int grabX_ = 0;
  int grabY_ = 0;
  std::vector<Flag> stuckLeft_;
  std::vector<Flag> stuckRight_;
  std::vector<Flag> stuckTop_;
  std::vector<Flag> stuckBottom_;
};

}  // namespace varek

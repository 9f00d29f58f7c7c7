#include "views/kit/windows/sticky_panels.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace varek {

namespace {

bool IsNear(int a, int b) { return std::abs(a - b) < kSnapDistance; }

/// What a panel covers in one direction.
struct Span {
  int begin;
  int length;
  int End() const { return begin + length; }
};

Span Across(const Panel& panel) { return {panel.left, panel.width}; }
Span Along(const Panel& panel) { return {panel.top, panel.height}; }

bool Overlap(Span a, Span b) { return a.begin < b.End() && b.begin < a.End(); }

/// Where `moving` begins beside `other`: its end at the other's begin, or its begin at the other's
/// end.
int SnapToPanel(Span moving, Span other) {
  if (IsNear(moving.End(), other.begin)) return other.begin - moving.length;
  if (IsNear(moving.begin, other.End())) return other.End();
  return kNoSnap;
}

/// The far edge comes before the near one.
int SnapToClient(Span moving, int client, Flag& stuckFar, Flag& stuckNear) {
  if (IsNear(moving.End(), client)) {
    stuckFar = kSet;
    return client - moving.length;
  }
  if (IsNear(moving.begin, 0)) {
    stuckNear = kSet;
    return 0;
  }
  return kNoSnap;
}

int HeldInside(Span panel, int client) {
  if (panel.End() >= client) return std::max(client - panel.length, 0);
  return std::max(panel.begin, 0);
}

}  // namespace

StickyPanels::StickyPanels(std::vector<Panel> panels, WhenResized rule)
    : panels_(std::move(panels)),
      rule_(rule),
      stuckLeft_(panels_.size(), kClear),
      stuckRight_(stuckLeft_),
      stuckTop_(stuckLeft_),
      stuckBottom_(stuckLeft_) {}

void StickyPanels::SetClientSize(int width, int height) {
  clientWidth_ = width;
  clientHeight_ = height;
}

void StickyPanels::Grab(int x, int y) {
  grabX_ = x;
  grabY_ = y;
}

void StickyPanels::Drag(size_t moving, int x, int y) {
  Panel& panel = panels_.at(moving);
  panel.left = SnappedLeft(moving, x - grabX_ + panel.left);
  panel.top = SnappedTop(moving, y - grabY_ + panel.top);
  ForgetEdgesMovedFrom(moving);
}

int StickyPanels::SnappedLeft(size_t moving, int left) {
  for (size_t other = 0; other < panels_.size(); ++other) {
    if (other == moving || !panels_[other].visible) continue;
    if (const int snapped = MakeXPoint(moving, other, left); snapped != kNoSnap) return snapped;
  }
  const int snapped = MakeXPointForm(moving, left);
  return snapped == kNoSnap ? left : snapped;
}

int StickyPanels::SnappedTop(size_t moving, int top) {
  for (size_t other = 0; other < panels_.size(); ++other) {
    if (other == moving || !panels_[other].visible) continue;
    if (const int snapped = MakeYPoint(moving, other, top); snapped != kNoSnap) return snapped;
  }
  const int snapped = MakeYPointForm(moving, top);
  return snapped == kNoSnap ? top : snapped;
}

/// A panel that was dragged away from an edge does not stick to it any more.
void StickyPanels::ForgetEdgesMovedFrom(size_t moving) {
  const Panel& panel = panels_[moving];
  if (MakeYPointForm(moving, panel.top) == kNoSnap)
    stuckTop_[moving] = stuckBottom_[moving] = kClear;
  if (MakeXPointForm(moving, panel.left) == kNoSnap)
    stuckLeft_[moving] = stuckRight_[moving] = kClear;
}

int StickyPanels::MakeXPoint(size_t moving, size_t other, int left) const {
  const Panel& m = panels_.at(moving);
  const Panel& o = panels_.at(other);
  return Overlap(Along(m), Along(o)) ? SnapToPanel({left, m.width}, Across(o)) : kNoSnap;
}

int StickyPanels::MakeYPoint(size_t moving, size_t other, int top) const {
  const Panel& m = panels_.at(moving);
  const Panel& o = panels_.at(other);
  return Overlap(Across(m), Across(o)) ? SnapToPanel({top, m.height}, Along(o)) : kNoSnap;
}

int StickyPanels::MakeXPointForm(size_t panel, int left) {
  return SnapToClient({left, panels_.at(panel).width}, clientWidth_, stuckRight_[panel],
                      stuckLeft_[panel]);
}

int StickyPanels::MakeYPointForm(size_t panel, int top) {
  return SnapToClient({top, panels_.at(panel).height}, clientHeight_, stuckBottom_[panel],
                      stuckTop_[panel]);
}

void StickyPanels::ReWindow() {
  for (Panel& panel : panels_) {
    panel.left = HeldInside(Across(panel), clientWidth_);
    panel.top = HeldInside(Along(panel), clientHeight_);
  }
  if (rule_ == WhenResized::FollowEdges) PutOnEdges();
}

/// Left and top come last and so win over right and bottom.
void StickyPanels::PutOnEdges() {
  for (size_t i = 0; i < panels_.size(); ++i) {
    if (stuckRight_[i]) panels_[i].left = clientWidth_ - panels_[i].width;
    if (stuckBottom_[i]) panels_[i].top = clientHeight_ - panels_[i].height;
  }
  for (size_t i = 0; i < panels_.size(); ++i) {
    if (stuckLeft_[i]) panels_[i].left = 0;
    if (stuckTop_[i]) panels_[i].top = 0;
  }
}

}  // namespace varek

// A panel inside a window: a title strip, by which it is dragged, above what it holds. Where it may
// stand is for the window's StickyPanels to say.
#pragma once

#include <QFrame>
#include <functional>
#include <string>

#include "views/kit/windows/sticky_panels.h"

class QLabel;

namespace varek {

class MovablePanel : public QFrame {
 public:
  static constexpr int kTitleHeight = 26;

  /// The panel is number `number` of `panels`, which must live as long as it is shown. Errors of a
  /// drag are reported under `name`. What the panel holds stands below kTitleHeight.
  MovablePanel(QWidget* parent, std::string name, StickyPanels& panels, size_t number);

  void SetTitle(const QString& text);
  /// Tells its size and visibility to the StickyPanels.
  void TellPanels();
  /// Moves to where the StickyPanels want it.
  void FollowPanels();
  /// How the panel is closed; one for which nothing is said stands as long as its window.
  void OnPutAway(std::function<void()> putAway);
  bool CanPutAway() const { return static_cast<bool>(putAway_); }
  /// Closes it, guarded. REQUIRES CanPutAway.
  void PutAway();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::string name_;
  StickyPanels& panels_;
  size_t number_;
  QLabel* title_;
  std::function<void()> putAway_;
  bool grabbed_ = false;
};

/// The panel that is closed first: the one that has the focus, else the uppermost of those that
/// show. Null when none shows that can be closed.
MovablePanel* InnermostPanel(const QWidget& client);

}  // namespace varek

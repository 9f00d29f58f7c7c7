// The small parts of the oscilloscope's window: a picture that the mouse works on, the tip, and the
// busy bar.
#pragma once

#include <QFrame>
#include <QWidget>
#include <functional>
#include <string>

#include "platform/picture/surface.h"
#include "views/oscilloscope/scope_tip.h"

class QLabel;

namespace varek {

/// Shows a surface at its own size, and reports what the mouse does over it.
class SurfaceView final : public QWidget {
 public:
  using MouseHandler = std::function<void(const QMouseEvent& event)>;
  struct Mouse {
    MouseHandler down;
    MouseHandler move;  ///< with or without a button held
    MouseHandler up;
    std::function<void()> left;  ///< the pointer is elsewhere
  };

  /// `surface` must live as long as the view. The handlers run guarded, under `name` and the event.
  SurfaceView(QWidget* parent, std::string name, const platform::Surface& surface, Mouse mouse);

  /// No handler runs any more: their owner goes.
  void Forget() { mouse_ = {}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void Tell(const char* what, const MouseHandler& handler, QMouseEvent* event) const;

  std::string name_;
  const platform::Surface& surface_;
  Mouse mouse_;
};

/// The tip: a plate in a colour of the plot, with its text in the complement.
class TipPlate final : public QWidget {
 public:
  explicit TipPlate(QWidget* parent);

  /// Shows `text` beside the pointer, inside the parent.
  void ShowText(const std::string& text, platform::Color back, QPoint pointer);
  const QString& Text() const { return text_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
  platform::Color back_;
};

/// Covers the time of a load. It paints itself at once and lets no other event run, so that nothing
/// can happen to the window between two rows.
class BusyBar final : public QFrame {
 public:
  explicit BusyBar(QWidget* parent);

  void ApplyLanguage();
  /// Shows the bar, empty, in the middle of its parent.
  void Open();
  /// 0 to 100.
  void SetProgress(int percent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QLabel* caption_;
  platform::Surface target_;
  platform::Surface source_;
};

}  // namespace varek

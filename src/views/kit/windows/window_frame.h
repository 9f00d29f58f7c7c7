// A window without a title bar of the system's: it draws its own frame from pictures, is moved by
// its top strip and, where that is wanted, resized by its edges. Views and countdowns share it.
#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>
#include <functional>
#include <string>

namespace varek {

/// Without them the frame is painted in the palette's colours.
struct FramePictures {
  QPixmap top;
  QPixmap left;
  QPixmap right;
  QPixmap bottom;
};

/// Throws RuntimeError 53 when one is missing and 481 when it is no picture.
FramePictures LoadFramePictures();

enum class FrameSizing { Fixed, ByEdges };

constexpr int kFrameTop = 30;  ///< pixels, as are all sizes here
constexpr int kFrameEdge = 5;  ///< left, right and below

/// The edges that a press at `at` takes hold of in a window of `size`; none inside.
Qt::Edges EdgesAt(QPoint at, QSize size);

/// `window` with its `edges` moved by `travel`, the opposite ones standing; never below `least`.
QRect Resized(const QRect& window, Qt::Edges edges, QPoint travel, QSize least);

class WindowFrame : public QWidget {
 public:
  /// Errors are reported under `name`. The contents margins are the frame's.
  WindowFrame(std::string name, FramePictures pictures, FrameSizing sizing,
              Qt::WindowFlags more = {});

 protected:
  /// Runs `handler` guarded, under the window's name and the event's.
  void Enter(const char* event, const std::function<void()>& handler) const;
  /// Keeps the caption off the last `width` pixels of the strip.
  void SetButtonRoom(int width) { buttonRoom_ = width; }

  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  enum class Grip { None, Move, Resize };

  bool IsResizable() const;
  void BeginDrag(QPoint at, QPoint pointer);
  void LeaveDragToDesktop();
  void Drag(QPoint pointer);
  void ShowGripAt(QPoint at);
  void PaintCaption(QPainter& painter) const;

  std::string name_;
  FramePictures pictures_;
  FrameSizing sizing_;
  int buttonRoom_ = 0;
  Grip grip_ = Grip::None;
  Qt::Edges grabbedEdges_;
  QPoint grabbedAt_;  ///< on the screen
  QRect grabbedGeometry_;
};

}  // namespace varek

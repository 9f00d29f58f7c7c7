#include "views/kit/windows/window_frame.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "drawing/palette.h"
#include "platform/errors/guard.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/pictures.h"
#include "views/kit/looks/style.h"

namespace varek {

namespace {

/// How far from a corner both of its edges are taken hold of.
constexpr int kCorner = 16;
constexpr int kCaptionLeft = 10;

bool IsInStrip(QPoint at) { return at.y() >= 0 && at.y() < kFrameTop; }

/// There, a window can't place itself and the desktop moves and resizes it.
bool DesktopPlacesWindows() {
  return QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

Qt::CursorShape ShapeFor(Qt::Edges edges) {
  const bool across = edges & (Qt::LeftEdge | Qt::RightEdge);
  const bool along = edges & (Qt::TopEdge | Qt::BottomEdge);
  if (across && along) {
    const bool falling =
        edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge);
    return falling ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
  }
  if (across) return Qt::SizeHorCursor;
  return along ? Qt::SizeVerCursor : Qt::ArrowCursor;
}

void PaintPart(QPainter& painter, const QRect& to, const QPixmap& picture) {
  if (picture.isNull()) {
    painter.fillRect(to, ToQColor(palette::kPanel));
  } else {
    painter.drawPixmap(to, picture);
  }
}

}  // namespace

FramePictures LoadFramePictures() {
  return {LoadPicture("frametop.jpg"), LoadPicture("frameleft.jpg"), LoadPicture("frameright.jpg"),
          LoadPicture("framebottom.jpg")};
}

Qt::Edges EdgesAt(QPoint at, QSize size) {
  const int fromRight = size.width() - 1 - at.x();
  const int fromBottom = size.height() - 1 - at.y();
  const bool onSide = at.x() < kFrameEdge || fromRight < kFrameEdge;
  const bool onBottom = fromBottom < kFrameEdge;
  const int sideReach = onBottom ? kCorner : kFrameEdge;
  const int endReach = onSide ? kCorner : kFrameEdge;
  Qt::Edges edges;
  edges.setFlag(Qt::LeftEdge, at.x() < sideReach);
  edges.setFlag(Qt::RightEdge, fromRight < sideReach);
  edges.setFlag(Qt::BottomEdge, fromBottom < endReach);
  // The strip moves the window, so only the upper corners take hold of the top edge.
  edges.setFlag(Qt::TopEdge, onSide && at.y() < kCorner);
  return edges;
}

QRect Resized(const QRect& window, Qt::Edges edges, QPoint travel, QSize least) {
  const int slackX = std::max(0, window.width() - least.width());
  const int slackY = std::max(0, window.height() - least.height());
  QRect result = window;
  if (edges & Qt::LeftEdge) result.setLeft(window.left() + std::min(travel.x(), slackX));
  if (edges & Qt::RightEdge) result.setRight(window.right() + std::max(travel.x(), -slackX));
  if (edges & Qt::TopEdge) result.setTop(window.top() + std::min(travel.y(), slackY));
  if (edges & Qt::BottomEdge) result.setBottom(window.bottom() + std::max(travel.y(), -slackY));
  return result;
}

WindowFrame::WindowFrame(std::string name, FramePictures pictures, FrameSizing sizing,
                         Qt::WindowFlags more)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | more),
      name_(std::move(name)),
      pictures_(std::move(pictures)),
      sizing_(sizing) {
  ApplyStyle(*this);
  setMouseTracking(true);
  setContentsMargins(kFrameEdge, kFrameTop, kFrameEdge, kFrameEdge);
}

void WindowFrame::Enter(const char* event, const std::function<void()>& handler) const {
  platform::Guarded(name_ + " " + event, handler);
}

bool WindowFrame::IsResizable() const { return sizing_ == FrameSizing::ByEdges && !isMaximized(); }

void WindowFrame::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  Enter("Form_MouseDown",
        [&] { BeginDrag(event->position().toPoint(), event->globalPosition().toPoint()); });
}

void WindowFrame::BeginDrag(QPoint at, QPoint pointer) {
  grabbedEdges_ = IsResizable() ? EdgesAt(at, size()) : Qt::Edges();
  grabbedAt_ = pointer;
  grabbedGeometry_ = geometry();
  if (grabbedEdges_) {
    grip_ = Grip::Resize;
  } else if (IsInStrip(at) && !isMaximized()) {
    grip_ = Grip::Move;
  }
  if (DesktopPlacesWindows()) LeaveDragToDesktop();
}

void WindowFrame::LeaveDragToDesktop() {
  if (grip_ == Grip::Resize) windowHandle()->startSystemResize(grabbedEdges_);
  if (grip_ == Grip::Move) windowHandle()->startSystemMove();
  grip_ = Grip::None;
}

void WindowFrame::mouseMoveEvent(QMouseEvent* event) {
  Enter("Form_MouseMove", [&] {
    if (event->buttons() & Qt::LeftButton) return Drag(event->globalPosition().toPoint());
    ShowGripAt(event->position().toPoint());
  });
}

void WindowFrame::Drag(QPoint pointer) {
  const QPoint travel = pointer - grabbedAt_;
  if (grip_ == Grip::Move) move(grabbedGeometry_.topLeft() + travel);
  if (grip_ == Grip::Resize)
    setGeometry(Resized(grabbedGeometry_, grabbedEdges_, travel, minimumSize()));
}

void WindowFrame::ShowGripAt(QPoint at) {
  setCursor(IsResizable() ? ShapeFor(EdgesAt(at, size())) : Qt::ArrowCursor);
}

void WindowFrame::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) grip_ = Grip::None;
}

void WindowFrame::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || sizing_ == FrameSizing::Fixed) return;
  if (!IsInStrip(event->position().toPoint())) return;
  grip_ = Grip::None;
  Enter("Form_DblClick", [&] { setWindowState(windowState() ^ Qt::WindowMaximized); });
}

void WindowFrame::changeEvent(QEvent* event) {
  if (event->type() == QEvent::WindowTitleChange) update();
  QWidget::changeEvent(event);
}

void WindowFrame::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  const int below = height() - kFrameEdge;
  const int between = below - kFrameTop;
  painter.fillRect(rect(), ToQColor(palette::kWindow));
  PaintPart(painter, {0, 0, width(), kFrameTop}, pictures_.top);
  PaintPart(painter, {0, kFrameTop, kFrameEdge, between}, pictures_.left);
  PaintPart(painter, {width() - kFrameEdge, kFrameTop, kFrameEdge, between}, pictures_.right);
  PaintPart(painter, {0, below, width(), kFrameEdge}, pictures_.bottom);
  PaintCaption(painter);
}

void WindowFrame::PaintCaption(QPainter& painter) const {
  const QRect room(kCaptionLeft, 0, width() - 2 * kCaptionLeft - buttonRoom_, kFrameTop);
  painter.setPen(ToQColor(palette::kText));
  painter.drawText(
      room, Qt::AlignLeft | Qt::AlignVCenter,
      QFontMetrics(painter.font()).elidedText(windowTitle(), Qt::ElideRight, room.width()));
}

}  // namespace varek

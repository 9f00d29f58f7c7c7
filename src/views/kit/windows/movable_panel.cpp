#include "views/kit/windows/movable_panel.h"

#include <QLabel>
#include <QMouseEvent>
#include <utility>

#include "platform/errors/guard.h"

namespace varek {

namespace {
constexpr int kTitleMargin = 8;
}  // namespace

MovablePanel::MovablePanel(QWidget* parent, std::string name, StickyPanels& panels, size_t number)
    : QFrame(parent),
      name_(std::move(name)),
      panels_(panels),
      number_(number),
      title_(new QLabel(this)) {
  setObjectName(QStringLiteral("panel"));
  title_->setCursor(Qt::SizeAllCursor);
  title_->setStyleSheet(QStringLiteral("font-weight: bold;"));
}

void MovablePanel::SetTitle(const QString& text) { title_->setText(text); }

void MovablePanel::TellPanels() {
  auto& panel = panels_.At(number_);
  panel.width = width();
  panel.height = height();
  panel.visible = !isHidden();
}

void MovablePanel::FollowPanels() { move(panels_.At(number_).left, panels_.At(number_).top); }

void MovablePanel::OnPutAway(std::function<void()> putAway) { putAway_ = std::move(putAway); }

void MovablePanel::PutAway() { platform::Guarded(name_ + "_PutAway", putAway_); }

void MovablePanel::mousePressEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (event->button() != Qt::LeftButton || at.y() >= kTitleHeight) return;
  platform::Guarded(name_ + "_MouseDown", [this, at] {
    grabbed_ = true;
    raise();
    panels_.Grab(at.x(), at.y());
  });
}

void MovablePanel::mouseMoveEvent(QMouseEvent* event) {
  if (!grabbed_ || !(event->buttons() & Qt::LeftButton)) return;
  platform::Guarded(name_ + "_MouseMove", [this, at = event->position().toPoint()] {
    panels_.Drag(number_, at.x(), at.y());
    FollowPanels();
  });
}

void MovablePanel::mouseReleaseEvent(QMouseEvent*) { grabbed_ = false; }

void MovablePanel::resizeEvent(QResizeEvent*) {
  title_->setGeometry(kTitleMargin, 0, width() - 2 * kTitleMargin, kTitleHeight);
}

/// The toolkit lists the children of a widget from the lowest to the uppermost.
MovablePanel* InnermostPanel(const QWidget& client) {
  MovablePanel* innermost = nullptr;
  for (QObject* child : client.children()) {
    auto* panel = dynamic_cast<MovablePanel*>(child);
    if (!panel || panel->isHidden() || !panel->CanPutAway()) continue;
    innermost = panel;
    if (panel->isAncestorOf(client.window()->focusWidget())) break;
  }
  return innermost;
}

}  // namespace varek

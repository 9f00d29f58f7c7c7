#include "support/windows.h"

#include <filesystem>

#include "platform/time/events.h"
#include "views/countdown/countdown_window.h"
#include "views/kit/windows/window_frame.h"

namespace varek::test {

namespace {

constexpr int kRounds = 5;  ///< the longest chain: a click, its load, a message and its window

}  // namespace

WindowTest::WindowTest() {
  SetCountdownViewMaker(MakeCountdownWindow);
  InstallPictures(Folder());
  Loadlanguage(0);
}

std::string WindowTest::CopyPictures() const {
  const std::string image = Folder() + "/image";
  const auto real = std::filesystem::read_symlink(image);
  std::filesystem::remove(image);
  std::filesystem::copy(real, image);
  return image;
}

void Settle() {
  for (int round = 0; round < kRounds; ++round) platform::DoEvents();
}

void Mouse(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButton button) {
  const Qt::MouseButton changed = type == QEvent::MouseMove ? Qt::NoButton : button;
  const Qt::MouseButton held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
  QMouseEvent event(type, at, widget.mapToGlobal(at), changed, held, {});
  QApplication::sendEvent(&widget, &event);
}

void Hover(QWidget& widget, QPointF at) { Mouse(widget, QEvent::MouseMove, at, Qt::NoButton); }

void Leave(QWidget& widget) {
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&widget, &leave);
}

void Drag(QWidget& widget, QPointF from, QPointF to, Qt::MouseButton button) {
  Mouse(widget, QEvent::MouseButtonPress, from, button);
  Mouse(widget, QEvent::MouseMove, to, button);
  Mouse(widget, QEvent::MouseButtonRelease, to, button);
}

void Wheel(QWidget& widget) {
  QWheelEvent notch({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, {}, false);
  QApplication::sendEvent(&widget, &notch);
}

void Click(QWidget& widget, QPointF at) {
  if (widget.focusPolicy() & Qt::ClickFocus) widget.setFocus(Qt::MouseFocusReason);
  Mouse(widget, QEvent::MouseButtonPress, at);
  Mouse(widget, QEvent::MouseButtonRelease, at);
  Settle();
}

void Click(QWidget& widget) { Click(widget, widget.rect().center()); }

void Key(QWidget& widget, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, modifiers, text);
    QApplication::sendEvent(&widget, &event);
  }
  Settle();
}

void Type(QWidget& widget, const char* characters) {
  for (const char* each = characters; *each != '\0'; ++each)
    Key(widget, *each == '\b' ? int{Qt::Key_Backspace} : *each, {}, QChar::fromLatin1(*each));
}

void Tab(QWidget& widget, QEvent::Type type) {
  QFocusEvent event(type, Qt::TabFocusReason);
  QApplication::sendEvent(&widget, &event);
}

QWidget& FocusOf(QWidget& window) { return window.focusWidget() ? *window.focusWidget() : window; }

QList<QWidget*> OpenWindows() {
  QList<QWidget*> windows = QApplication::topLevelWidgets();
  windows.removeIf(
      [](QWidget* each) { return !each->isVisible() || !dynamic_cast<WindowFrame*>(each); });
  return windows;
}

bool Says(const QWidget& control, const std::string& text) {
  const QString wanted = QString::fromStdString(text);
  if (control.property("text").toString() == wanted || control.accessibleName() == wanted)
    return true;
  for (const QLabel* label : control.window()->findChildren<QLabel*>())
    if (label->buddy() == &control && label->text() == wanted) return true;
  return false;
}

}  // namespace varek::test

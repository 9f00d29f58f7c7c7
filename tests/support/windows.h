// What tests of windows share: what a person does and sees. Events go to the control itself, so no
// display is needed. The toolkit's controls and the state come with it.
#pragma once

#include <QtWidgets>
#include <stdexcept>
#include <string>

#include "core/data_center.h"
#include "core/error_list.h"
#include "core/forms.h"
#include "platform/system/paths.h"
#include "records/files/databases.h"
#include "support/monitor_fixture.h"
#include "texts/language.h"

namespace varek::test {

/// A program folder with its pictures, in English.
class WindowTest : public MonitorTest {
 protected:
  WindowTest();

  /// Puts a copy of the pictures in their place, of which a test may spoil one; gives its folder.
  std::string CopyPictures() const;
};

/// Handles what waits, and what that posts in its turn: a click acts from the event loop, and what
/// it closes goes one round later.
void Settle();

/// One event of the mouse; a move has `button` held down.
void Mouse(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButton button = Qt::LeftButton);
/// The pointer comes to a point with no button held down.
void Hover(QWidget& widget, QPointF at);
void Leave(QWidget& widget);
void Drag(QWidget& widget, QPointF from, QPointF to, Qt::MouseButton button = Qt::LeftButton);
/// Turns the wheel by a notch towards the person.
void Wheel(QWidget& widget);
/// Presses and releases the left button, which gives the focus to what takes it, and settles.
void Click(QWidget& widget, QPointF at);
void Click(QWidget& widget);

void Key(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
/// One key for each character; "\b" is Backspace.
void Type(QWidget& widget, const char* characters);
/// The focus comes to a control or leaves it by Tab: `type` is FocusIn or FocusOut.
void Tab(QWidget& widget, QEvent::Type type);
/// The control that the keys of a window go to.
QWidget& FocusOf(QWidget& window);

/// The top-level windows with a frame of ours that are to be seen.
QList<QWidget*> OpenWindows();

/// Whether the control shows `text`, or bears it as its caption or as the name that is read out.
bool Says(const QWidget& control, const std::string& text);

/// The controls of a type, in the order in which they were made.
template <typename Control>
std::vector<Control*> All(const QWidget& window) {
  std::vector<Control*> found;
  for (QWidget* each : window.findChildren<QWidget*>())
    if (auto* control = dynamic_cast<Control*>(each)) found.push_back(control);
  return found;
}

/// The one at `index` of them.
template <typename Control>
Control& Nth(const QWidget& window, size_t index = 0) {
  return *All<Control>(window).at(index);
}

/// The first of them that says `text`.
template <typename Control = QWidget>
Control& Saying(const QWidget& window, const std::string& text) {
  for (Control* control : All<Control>(window))
    if (Says(*control, text)) return *control;
  throw std::runtime_error("no control says " + text);
}

}  // namespace varek::test

// The window of a view: no title bar of the system's, a frame of pictures instead, with the
// caption and the buttons in its top strip. It is moved by that strip, resized by its edges and
// closed by its button, Escape, Ctrl+W or the desktop; closing unloads the form. While a panel is
// open that can be closed, Escape closes that one instead.
#pragma once

#include <QSize>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "platform/desktop/message_box.h"
#include "views/kit/windows/window_frame.h"

namespace varek {

class ViewWindow : public WindowFrame {
 public:
  /// `formNumber` is what closing unloads. `client` is the size inside the frame at the start,
  /// `least` the smallest that it can be given. A frame picture that is missing throws
  /// RuntimeError 53. The client area has the size `client` until the window is shown, even where
  /// the screen is too small for it, so that a layout can be captured.
  ViewWindow(int formNumber, QSize client, QSize least);
  ~ViewWindow() override;

  void SetCaption(const QString& text);
  /// The client area: parent of all that the view holds.
  QWidget* Client() const;
  /// Shows the window, or brings it to the front.
  void ShowAndRaise();
  /// The texts of the frame's buttons in the present language.
  void ApplyLanguage();

 protected:
  /// The client area has a new size. Runs guarded; must not pump events, since the window could go
  /// meanwhile.
  virtual void Form_Resize() {}
  /// The window has become the active one. As Form_Resize.
  virtual void Form_Activate() {}

  /// Shows a message on this window once the present handler has ended, so that a window that is
  /// being made or closed meanwhile is in place, or gone.
  void Tell(const std::string& text,
            platform::MessageIcon icon = platform::MessageIcon::Exclamation);

  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

/// Opens a window for a person by `show`; false when it could not be opened. What kept it from
/// that, as a missing picture does, is shown in a box and reported under `place`.
bool OpenForPerson(const std::string& place, const std::function<void()>& show);

}  // namespace varek

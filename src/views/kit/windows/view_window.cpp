#include "views/kit/windows/view_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QScreen>

#include "core/forms.h"
#include "platform/desktop/message_box.h"
#include "platform/errors/guard.h"
#include "platform/errors/runtime_error.h"
#include "platform/time/events.h"
#include "texts/language.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/looks/pictures.h"
#include "views/kit/windows/movable_panel.h"

namespace varek {

namespace {

constexpr int kButtonSize = 22;
constexpr int kButtonTop = (kFrameTop - kButtonSize) / 2;
constexpr int kButtonGap = 4;

QSize WithFrame(QSize client) { return client + QSize(2 * kFrameEdge, kFrameTop + kFrameEdge); }

bool IsCloseKey(const QKeyEvent& event) {
  return event.key() == Qt::Key_Escape ||
         (event.key() == Qt::Key_W && event.modifiers() == Qt::ControlModifier);
}

void SetTip(PictureButton& button, const std::string& text) {
  button.setToolTip(QString::fromStdString(text));
  button.setAccessibleName(button.toolTip());
}

/// In the middle of the screen, and not larger than it.
void PlaceOnScreen(QWidget& window, QSize size) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  QRect place(QPoint(), size.boundedTo(screen.size()));
  place.moveCenter(screen.center());
  window.setGeometry(place);
}

}  // namespace

struct ViewWindow::Impl {
  Impl(ViewWindow& window, int form)
      : number(form),
        client(&window),
        minimise(&window, QStringLiteral("minimise"), Place("Minimise_Click"),
                 [&window] { window.showMinimized(); }),
        close(&window, QStringLiteral("close"), Place("Close_Click"),
              [&window] { window.close(); }) {
    client.setCursor(Qt::ArrowCursor);
    for (PictureButton* button : {&minimise, &close}) {
      button->resize(kButtonSize, kButtonSize);
      // The keyboard has Escape and the desktop's own keys, and begins in the view.
      button->setFocusPolicy(Qt::NoFocus);
    }
  }

  std::string Place(const char* handler) const {
    return "form" + std::to_string(number) + " " + handler;
  }

  void PlaceButtons(int windowWidth) {
    const int left = windowWidth - kFrameEdge - kButtonGap - kButtonSize;
    close.move(left, kButtonTop);
    minimise.move(left - kButtonGap - kButtonSize, kButtonTop);
  }

  const int number;
  QWidget client;
  PictureButton minimise;
  PictureButton close;
};

ViewWindow::ViewWindow(int formNumber, QSize client, QSize least)
    : WindowFrame("form" + std::to_string(formNumber), LoadFramePictures(), FrameSizing::ByEdges),
      impl_(std::make_unique<Impl>(*this, formNumber)) {
  setWindowIcon(QIcon(LoadPicture("varek.png")));
  SetButtonRoom(2 * (kButtonSize + kButtonGap));
  setMinimumSize(WithFrame(least));
  PlaceOnScreen(*this, WithFrame(client));
  impl_->client.setGeometry(QRect({kFrameEdge, kFrameTop}, client));
  ViewWindow::ApplyLanguage();
}

ViewWindow::~ViewWindow() = default;

void ViewWindow::SetCaption(const QString& text) { setWindowTitle(text); }

QWidget* ViewWindow::Client() const { return &impl_->client; }

void ViewWindow::ShowAndRaise() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void ViewWindow::ApplyLanguage() {
  SetTip(impl_->close, LangText[texts::kCloseWindow]);
  SetTip(impl_->minimise, LangText[texts::kMinimise]);
}

void ViewWindow::Tell(const std::string& text, platform::MessageIcon icon) {
  platform::TellLater(impl_->Place("message"), this, {.text = text, .icon = icon});
}

void ViewWindow::resizeEvent(QResizeEvent*) {
  Enter("Form_Resize", [this] {
    impl_->PlaceButtons(width());
    impl_->client.setGeometry(contentsRect());
    Form_Resize();
  });
}

void ViewWindow::changeEvent(QEvent* event) {
  WindowFrame::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
  Enter("Form_Activate", [this] { Form_Activate(); });
}

void ViewWindow::keyPressEvent(QKeyEvent* event) {
  if (!IsCloseKey(*event)) return WindowFrame::keyPressEvent(event);
  MovablePanel* panel = event->key() == Qt::Key_Escape ? InnermostPanel(*Client()) : nullptr;
  panel ? panel->PutAway() : void(close());
}

/// Unloading destroys the window, which must not happen below its own handlers. The window agrees,
/// so that a desktop that asks all windows before it quits is not held up.
void ViewWindow::closeEvent(QCloseEvent*) {
  platform::Post("view close", [number = impl_->number] { UnloadForm(number); });
}

bool OpenForPerson(const std::string& place, const std::function<void()>& show) {
  try {
    show();
    return true;
  } catch (const platform::RuntimeError& error) {
    platform::ReportError(place, error);
    platform::TellLater(place, QApplication::activeWindow(),
                        {.text = error.what(), .icon = platform::MessageIcon::Exclamation});
    return false;
  }
}

}  // namespace varek

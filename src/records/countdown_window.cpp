#include "records/countdown_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <QWidget>
#include <utility>

#include "platform/events.h"
#include "settings/language.h"

namespace varek {

namespace {

constexpr size_t kCancelText = 83;
constexpr int kMinimumWidth = 260;
constexpr double kTimeFontFactor = 2.5;
/// Room for a title bar between the two windows.
constexpr int kGap = 24;

class Frame final : public QWidget {
 public:
  explicit Frame(std::function<void()> cancelAction)
      : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                             Qt::WindowStaysOnTopHint),
        cancel(std::move(cancelAction)) {
    QFont font = label.font();
    font.setPointSizeF(font.pointSizeF() * kTimeFontFactor);
    label.setFont(font);
    label.setAlignment(Qt::AlignCenter);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(&label);
    layout->addWidget(&button);
    setMinimumWidth(kMinimumWidth);
    // Whoever is typing must not press the button by accident.
    setAttribute(Qt::WA_ShowWithoutActivating);
    connect(&button, &QPushButton::clicked, this, [this] { PressCancel(); });
  }

  void PressCancel() { platform::Post("countdown cancel", cancel); }

  std::function<void()> cancel;
  QLabel label{QStringLiteral("00:00")};
  QPushButton button{QStringLiteral("取消")};

 protected:
  void closeEvent(QCloseEvent* event) override { event->ignore(); }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape) PressCancel();
  }
};

void MoveTo(Frame& frame, CountdownWindow::Place place) {
  frame.adjustSize();
  const QPoint middle = QGuiApplication::primaryScreen()->availableGeometry().center();
  const int above = place == CountdownWindow::Place::AboveMiddle ? frame.height() + kGap : -kGap;
  frame.move(middle - QPoint(frame.width() / 2, above));
}

}  // namespace

struct CountdownWindow::Impl {
  explicit Impl(std::function<void()> cancel) : frame(std::move(cancel)) {}
  Frame frame;
};

CountdownWindow::CountdownWindow(Place place, std::function<void()> cancel)
    : impl_(std::make_unique<Impl>(std::move(cancel))) {
  MoveTo(impl_->frame, place);
}
CountdownWindow::~CountdownWindow() = default;

void CountdownWindow::Show() {
  impl_->frame.show();
  impl_->frame.raise();
}

void CountdownWindow::SetCaption(const std::string& text) {
  impl_->frame.setWindowTitle(QString::fromStdString(text));
}

void CountdownWindow::ApplyLanguage(size_t number) {
  if (LangText[number].empty()) return;
  SetCaption(LangText[number]);
  impl_->frame.button.setText(QString::fromStdString(LangText[kCancelText]));
}

void CountdownWindow::SetLabel(const std::string& text) {
  impl_->frame.label.setText(QString::fromStdString(text));
}

std::string CountdownWindow::Label() const { return impl_->frame.label.text().toStdString(); }

void CountdownWindow::PressCancel() { impl_->frame.PressCancel(); }

}  // namespace varek

#include "records/countdown_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "platform/events.h"
#include "platform/guard.h"
#include "settings/language.h"
#include "views/kit/colors.h"
#include "views/kit/window_frame.h"
#include "views/kit/window_places.h"
#include "views/palette.h"

namespace varek {

namespace {

constexpr int kMinimumWidth = 300;
constexpr int kMargin = 18;
constexpr int kRemainingPixels = 14;
constexpr int kTimePixels = 56;

/// The countdown comes before its looks: without its pictures the frame is plain.
FramePictures PicturesAtHand() {
  FramePictures pictures;
  platform::Guarded("countdown frame", [&] { pictures = LoadFramePictures(); });
  return pictures;
}

void SetLabelLooks(QLabel& label, int pixels, platform::Color color) {
  label.setAlignment(Qt::AlignCenter);
  label.setStyleSheet(
      QStringLiteral("font-size: %1px; color: %2").arg(pixels).arg(ToQColor(color).name()));
}

class Frame final : public WindowFrame {
 public:
  explicit Frame(std::function<void()> cancelAction)
      : WindowFrame("countdown", PicturesAtHand(), FrameSizing::Fixed, Qt::WindowStaysOnTopHint),
        cancel(std::move(cancelAction)) {
    SetLabelLooks(remaining, kRemainingPixels, palette::kMuted);
    SetLabelLooks(label, kTimePixels, palette::kReading);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    for (QWidget* part : std::initializer_list<QWidget*>{&remaining, &label, &button})
      layout->addWidget(part);
    setMinimumWidth(kMinimumWidth);
    // Whoever is typing must not press the button by accident.
    setAttribute(Qt::WA_ShowWithoutActivating);
    connect(&button, &QPushButton::clicked, this, [this] { PressCancel(); });
  }

  void PressCancel() { platform::Post("countdown cancel", cancel); }

  std::function<void()> cancel;
  QLabel remaining{QStringLiteral("剩餘時間")};
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
  const Side side = place == CountdownWindow::Place::Left ? Side::Left : Side::Right;
  frame.move(PlaceCountdown(RoomAround(frame), frame.size(), side));
}

/// A menu or an unfolded list would swallow the first click on the button.
void FoldPopup() {
  if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
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
  FoldPopup();
  impl_->frame.show();
  impl_->frame.raise();
}

void CountdownWindow::SetCaption(const std::string& text) {
  impl_->frame.setWindowTitle(QString::fromStdString(text));
}

void CountdownWindow::ApplyLanguage(size_t number) {
  if (LangText[number].empty()) return;
  SetCaption(LangText[number]);
  impl_->frame.button.setText(QString::fromStdString(LangText[texts::kCancel]));
  impl_->frame.remaining.setText(QString::fromStdString(LangText[texts::kTimeRemaining]));
}

void CountdownWindow::SetLabel(const std::string& text) {
  impl_->frame.label.setText(QString::fromStdString(text));
}

std::string CountdownWindow::Label() const { return impl_->frame.label.text().toStdString(); }

void CountdownWindow::PressCancel() { impl_->frame.PressCancel(); }

}  // namespace varek

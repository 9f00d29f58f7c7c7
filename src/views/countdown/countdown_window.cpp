#include "views/countdown/countdown_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "drawing/palette.h"
#include "platform/errors/guard.h"
#include "platform/time/events.h"
#include "texts/language.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/shown.h"
#include "views/kit/windows/window_frame.h"
#include "views/kit/windows/window_places.h"

namespace varek {

namespace {

constexpr int kMinimumWidth = 300;
constexpr int kMargin = 18;
constexpr int kCaptionPixels = 14;
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
  explicit Frame(std::function<void()> cancel)
      : WindowFrame("countdown", PicturesAtHand(), FrameSizing::Fixed, Qt::WindowStaysOnTopHint),
        cancel_(std::move(cancel)) {
    SetLabelLooks(caption_, kCaptionPixels, palette::kMuted);
    SetLabelLooks(time_, kTimePixels, palette::kReading);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    for (QWidget* part : std::initializer_list<QWidget*>{&caption_, &time_, &cancelButton_})
      layout->addWidget(part);
    setMinimumWidth(kMinimumWidth);
    // Whoever is typing must not press the button by accident.
    setAttribute(Qt::WA_ShowWithoutActivating);
    connect(&cancelButton_, &QPushButton::clicked, this, [this] { PressCancel(); });
  }

  void ApplyLanguage() {
    cancelButton_.setText(Shown(texts::kCancel));
    caption_.setText(Shown(texts::kTimeRemaining));
  }
  void SetTime(const std::string& text) { time_.setText(Shown(text)); }

 protected:
  void closeEvent(QCloseEvent* event) override { event->ignore(); }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape) PressCancel();
  }

 private:
  void PressCancel() { platform::Post("countdown cancel", cancel_); }

  std::function<void()> cancel_;
  QLabel caption_{QStringLiteral("剩餘時間")};
  QLabel time_{QStringLiteral("00:00")};
  QPushButton cancelButton_{QStringLiteral("取消")};
};

void MoveTo(Frame& frame, CountdownPlace place) {
  frame.adjustSize();
  const Side side = place == CountdownPlace::Left ? Side::Left : Side::Right;
  frame.move(PlaceCountdown(RoomAround(frame), frame.size(), side));
}

/// A menu or an unfolded list would swallow the first click on the button.
void FoldPopup() {
  if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
}

class CountdownWindow final : public CountdownView {
 public:
  CountdownWindow(CountdownPlace place, std::function<void()> cancel) : frame_(std::move(cancel)) {
    MoveTo(frame_, place);
  }

  void Show() override {
    FoldPopup();
    frame_.show();
    frame_.raise();
  }

  void SetCaption(const std::string& text) override { frame_.setWindowTitle(Shown(text)); }

  void ApplyLanguage(size_t number) override {
    if (LangText[number].empty()) return;
    SetCaption(LangText[number]);
    frame_.ApplyLanguage();
  }

  void SetTime(const std::string& text) override { frame_.SetTime(text); }

 private:
  Frame frame_;
};

}  // namespace

std::unique_ptr<CountdownView> MakeCountdownWindow(CountdownPlace place,
                                                   std::function<void()> cancel) {
  return std::make_unique<CountdownWindow>(place, std::move(cancel));
}

}  // namespace varek

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
#include "views/kit/controls/colors.h"
#include "views/kit/windows/window_frame.h"
#include "views/kit/windows/window_places.h"

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

  void SetCaption(const std::string& text) override {
    frame_.setWindowTitle(QString::fromStdString(text));
  }

  void ApplyLanguage(size_t number) override {
    if (LangText[number].empty()) return;
    SetCaption(LangText[number]);
    frame_.button.setText(QString::fromStdString(LangText[texts::kCancel]));
    frame_.remaining.setText(QString::fromStdString(LangText[texts::kTimeRemaining]));
  }

  void SetTime(const std::string& text) override {
    frame_.label.setText(QString::fromStdString(text));
  }

 private:
  Frame frame_;
};

}  // namespace

std::unique_ptr<CountdownView> MakeCountdownWindow(CountdownPlace place,
                                                   std::function<void()> cancel) {
  return std::make_unique<CountdownWindow>(place, std::move(cancel));
}

}  // namespace varek

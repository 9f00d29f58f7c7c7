#include "views/dashboard/menu_strip.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "drawing/palette.h"
#include "platform/errors/guard.h"
#include "platform/time/events.h"
#include "texts/language.h"
#include "views/kit/controls/bubble.h"
#include "views/kit/controls/keys.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/controls/picture_view.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/pictures.h"
#include "views/kit/looks/shown.h"

namespace varek {

namespace {

constexpr int kTick = 30;
constexpr QSize kPlateSize{420, 67};
constexpr int kPictureTop = 17;  ///< below the plate's upper edge
/// The ten pictures stand half of one right of the middle, as only nine of them are centred.
constexpr int kPlateShift = 16;
constexpr double kPlateCorner = 10;
constexpr int kBubbleGap = 4;

/// Names of the items.
constexpr std::array<size_t, kMenuItems> kNames{texts::kLanguageCaption, texts::kSettingsCaption,
                                                texts::kScheduleCaption, texts::kEventLogCaption,
                                                texts::kHistoryCaption,  texts::kScopeCaption,
                                                texts::kSmsCaption,      texts::kMailCaption,
                                                texts::kWebLogCaption,   texts::kAboutCaption};

const std::string& NameOf(int item) { return LangText[kNames.at(static_cast<size_t>(item))]; }

}  // namespace

/// The plate below the pictures, which is dragged with the left button.
class MenuStrip::Plate final : public QWidget {
 public:
  Plate(QWidget* window, MenuStrip& strip) : QWidget(window), strip_(strip) { resize(kPlateSize); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(ToQColor(palette::kPanelEdge));
    painter.setBrush(ToQColor(palette::kPanel));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kPlateCorner,
                            kPlateCorner);
  }
  void mousePressEvent(QMouseEvent* event) override { grab_ = event->pos(); }
  void mouseMoveEvent(QMouseEvent* event) override {
    if (!(event->buttons() & Qt::LeftButton)) return;
    platform::Guarded("form1 Picture9_MouseMove",
                      [&] { strip_.MovePlate(pos() + event->pos() - grab_); });
  }

 private:
  MenuStrip& strip_;
  QPoint grab_;
};

class MenuStrip::ItemView final : public PictureView {
 public:
  ItemView(QWidget* window, MenuStrip& strip, int number)
      : PictureView(window), strip_(strip), number_(number) {
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
  }

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton) pressed_ = ItemUnder(*event);
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    const int item = ItemUnder(*event);
    Hover(item < 0 ? number_ : item, event->pos().y());
  }
  void leaveEvent(QEvent*) override { Leave(); }
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (event->button() != Qt::LeftButton) return;
    // The picture may have moved since it was pressed, and the pointer be on another control.
    if (pressed_ >= 0 && ItemUnder(*event) == pressed_) Open(pressed_);
    pressed_ = -1;
  }
  void focusInEvent(QFocusEvent* event) override {
    if (event->reason() != Qt::ActiveWindowFocusReason) Hover(number_, 0);
  }
  void focusOutEvent(QFocusEvent*) override {
    keyDown_ = false;
    Leave();
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (!IsClickKey(event->key())) return QWidget::keyPressEvent(event);
    if (!event->isAutoRepeat()) keyDown_ = true;
  }
  void keyReleaseEvent(QKeyEvent* event) override {
    if (!IsClickKey(event->key())) return QWidget::keyReleaseEvent(event);
    if (event->isAutoRepeat() || !keyDown_) return;
    keyDown_ = false;
    Open(number_);
  }
  void paintEvent(QPaintEvent* event) override {
    PictureView::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setPen(ToQColor(palette::kAccent));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }

 private:
  int ItemUnder(const QMouseEvent& event) const { return strip_.ItemAt(mapToParent(event.pos())); }
  void Hover(int item, int y) {
    platform::Guarded("form1 Picture1_MouseMove", [&] { strip_.Hover(item, y); });
  }
  void Leave() {
    platform::Guarded("form1 Picture1_MouseMove", [&] { strip_.Leave(); });
  }
  /// From the event loop: what opens may replace this very window.
  void Open(int item) {
    platform::Post("form1 Picture1_MouseUp", [open = strip_.open_, item] { open(item); });
  }

  MenuStrip& strip_;
  int number_;
  int pressed_ = -1;      ///< the item on which the button went down here
  bool keyDown_ = false;  ///< on this picture, and not on what had the focus before
};

MenuStrip::MenuStrip(QWidget* window, Bubble& bubble, std::function<void(int)> open)
    : window_(window),
      bubble_(bubble),
      open_(std::move(open)),
      plate_(new Plate(window, *this)),
      growTimer_("form1 Timer1", [this] { GrowTick(); }) {
  for (int item = 0; item < kMenuItems; ++item) {
    const auto i = static_cast<size_t>(item);
    pictures_[i] = LoadPicture("menupic" + std::to_string(item + 1) + ".jpg");
    items_[i] = new ItemView(window, *this, item);
    items_[i]->SetPicture(pictures_[i]);
  }
}

MenuStrip::~MenuStrip() {
  for (ItemView* item : items_) delete item;
  delete plate_;
}

QWidget* MenuStrip::Item(int item) const { return items_.at(static_cast<size_t>(item)); }

void MenuStrip::Place(int room) {
  const int home = (window_->width() - kPlateSize.width()) / 2 + kPlateShift;
  home_ = {home, std::min(0, room - kPlateSize.height())};
  MovePlate(home_ + dragged_);
}

/// The plate stays within the window, so that it can be dragged back.
void MenuStrip::MovePlate(QPoint wanted) {
  const int right = std::max(window_->width() - kPlateSize.width(), 0);
  const int bottom = std::max(window_->height() - kPlateSize.height(), 0);
  plate_->move(std::clamp(wanted.x(), 0, right), std::clamp(wanted.y(), home_.y(), bottom));
  dragged_ = plate_->pos() - home_;
  PlacePictures();
}

void MenuStrip::ApplyLanguage() {
  for (int item = 0; item < kMenuItems; ++item) Item(item)->setAccessibleName(Shown(NameOf(item)));
}

/// The item to which a point of the window belongs; -1 when no picture is there.
int MenuStrip::ItemAt(QPoint at) const {
  for (int item = 0; item < kMenuItems; ++item) {
    if (Item(item)->geometry().contains(at))
      return sizes_.ItemUnder(item, at.x() - dragged_.x(), window_->width());
  }
  return -1;
}

void MenuStrip::Hover(int item, int y) {
  sizes_.Hover(item, y);
  growTimer_.SetInterval(kTick);
  const QRect place = Item(item)->geometry();
  bubble_.ShowText(NameOf(item), {place.left(), place.top() + kLargestMenuPicture + kBubbleGap});
}

void MenuStrip::Leave() {
  sizes_.Collapse();
  bubble_.hide();
  growTimer_.SetInterval(kTick);
}

void MenuStrip::GrowTick() {
  if (sizes_.Tick()) growTimer_.SetInterval(0);
  PlacePictures();
}

void MenuStrip::PlacePictures() {
  const auto lefts = sizes_.Lefts(window_->width());
  for (int item = 0; item < kMenuItems; ++item) {
    const int size = sizes_.Size(item);
    Item(item)->setGeometry(lefts[static_cast<size_t>(item)] + dragged_.x(),
                            plate_->y() + kPictureTop, size, size);
  }
}

}  // namespace varek

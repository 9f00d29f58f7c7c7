#include "platform/tray_icon.h"

#include <cstdint>
#include <memory>
#include <optional>

#include <systemd/sd-bus.h>

#include <QApplication>
#include <QBuffer>
#include <QIcon>
#include <QImageReader>
#include <QMenu>
#include <QPixmap>
#include <QSystemTrayIcon>

#include "platform/application.h"
#include "platform/clock.h"
#include "platform/guard.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"

namespace platform {

namespace {

constexpr size_t kTipBytes = 63;
constexpr char kBusTray[] = "org.kde.StatusNotifierWatcher";
constexpr char kBusTrayPath[] = "/StatusNotifierWatcher";
constexpr uint64_t kBusPatience = 200'000;  // microseconds

/// Whether a tray of the kind that is reached through the session's message bus is up.
bool BusHasTray() {
  sd_bus* opened = nullptr;
  if (sd_bus_open_user(&opened) < 0) return false;
  const std::unique_ptr<sd_bus, decltype(&sd_bus_flush_close_unref)> bus(opened,
                                                                         sd_bus_flush_close_unref);
  sd_bus_set_method_call_timeout(opened, kBusPatience);
  int registered = 0;
  return sd_bus_get_property_trivial(opened, kBusTray, kBusTrayPath, kBusTray,
                                     "IsStatusNotifierHostRegistered", nullptr, 'b',
                                     &registered) >= 0 &&
         registered != 0;
}

/// The toolkit looks for a tray on the bus only once in a process. Where there is no other kind, it
/// must not be asked before the tray is up, or the icon would never come. On X the other kind
/// remains.
bool TrayIsThere() {
  if (!HasDisplay()) return false;
  const bool onX = QGuiApplication::platformName() == QStringLiteral("xcb");
  return (onX || BusHasTray()) && QSystemTrayIcon::isSystemTrayAvailable();
}

/// Every size that the file holds: the tray takes the one that fits.
std::vector<QImage> Sizes(const std::string& bytes) {
  QByteArray file = QByteArray::fromStdString(bytes);
  QBuffer buffer(&file);
  QImageReader reader(&buffer);
  std::vector<QImage> sizes;
  for (int i = 0; i < reader.imageCount() && reader.jumpToImage(i); ++i) {
    if (const QImage image = reader.read(); !image.isNull()) sizes.push_back(image);
  }
  return sizes;
}

QIcon ToIcon(const IconPicture& picture) {
  QIcon icon;
  for (const QImage& image : Sizes(picture.bytes)) icon.addPixmap(QPixmap::fromImage(image));
  return icon;
}

bool ContinuesCharacter(char byte) { return (static_cast<uint8_t>(byte) & 0xC0) == 0x80; }

std::string CutTip(const std::string& tip) {
  if (tip.size() <= kTipBytes) return tip;
  size_t length = kTipBytes;
  while (length > 0 && ContinuesCharacter(tip[length])) --length;
  return tip.substr(0, length);
}

class DesktopTray final : public TrayDriver {
 public:
  bool Add(const IconPicture& picture, const std::string& tip) override {
    if (!TrayIsThere()) return false;
    // The toolkit settles the kind of tray when the icon is made, so an old one is of no use.
    icon_ = std::make_unique<QSystemTrayIcon>();
    Modify(picture, tip);
    QObject::connect(icon_.get(), &QSystemTrayIcon::activated, icon_.get(),
                     [this](auto reason) { OnActivated(reason); });
    if (!menu_) menu_ = std::make_unique<QMenu>();
    FillMenu();
    icon_->setContextMenu(menu_.get());
    icon_->show();
    return icon_->isVisible();
  }

  void Modify(const IconPicture& picture, const std::string& tip) override {
    if (!icon_) return;
    icon_->setIcon(ToIcon(picture));
    icon_->setToolTip(QString::fromStdString(tip));
  }

  void Delete() override { icon_.reset(); }

  void SetActions(const TrayActions& actions) override {
    actions_ = actions;
    if (menu_) FillMenu();
  }

 private:
  /// A tray on the bus reports a double click as two single ones.
  void OnActivated(QSystemTrayIcon::ActivationReason reason) {
    const bool click = reason == QSystemTrayIcon::Trigger;
    const int64_t now = TickCount();
    const bool second = click && firstClick_ && now - *firstClick_ <= DoubleClickTime();
    firstClick_ = click && !second ? std::optional(now) : std::nullopt;
    if (second || reason == QSystemTrayIcon::DoubleClick) actions_.doubleClick();
  }

  static int DoubleClickTime() { return QApplication::doubleClickInterval(); }

  void FillMenu() {
    menu_->clear();
    for (const TrayMenuItem& item : actions_.menu) {
      menu_->addAction(QString::fromStdString(item.caption), menu_.get(), item.action);
    }
  }

  TrayActions actions_;
  std::optional<int64_t> firstClick_;  ///< tick count of a click that may become a double one
  std::unique_ptr<QMenu> menu_;  ///< outlives the icon, which one of its own items may take away
  std::unique_ptr<QSystemTrayIcon> icon_;
};

TrayDriver* replacement = nullptr;

TrayDriver& Tray() {
  static DesktopTray desktop;
  return replacement ? *replacement : desktop;
}

std::function<void()> InGuard(const char* place, const std::function<void()>& action) {
  return [place, action] {
    if (action) Guarded(place, action);
  };
}

}  // namespace

IconPicture LoadIcon(const std::string& path) {
  IconPicture picture{ReadWholeFile(path)};
  if (Sizes(picture.bytes).empty()) {
    throw RuntimeError(errors::kInvalidPicture, "Invalid picture: " + path);
  }
  return picture;
}

bool TrayAdd(const IconPicture& picture, const std::string& tip) {
  return Tray().Add(picture, CutTip(tip));
}

void TrayModify(const IconPicture& picture, const std::string& tip) {
  Tray().Modify(picture, CutTip(tip));
}

void TrayDelete() { Tray().Delete(); }

void SetTrayActions(const TrayActions& actions) {
  TrayActions guarded{InGuard("tray double click", actions.doubleClick), {}};
  for (const TrayMenuItem& item : actions.menu) {
    guarded.menu.push_back({item.caption, InGuard("tray menu", item.action)});
  }
  Tray().SetActions(guarded);
}

void ReplaceTrayDriver(TrayDriver* driver) { replacement = driver; }

}  // namespace platform

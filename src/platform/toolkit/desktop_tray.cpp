#include "platform/toolkit/desktop_tray.h"

#include <vector>

#include <systemd/sd-bus.h>

#include <QApplication>
#include <QBuffer>
#include <QIcon>
#include <QImageReader>
#include <QMenu>
#include <QPixmap>
#include <QSystemTrayIcon>

#include "platform/time/clock.h"
#include "platform/toolkit/display.h"

namespace platform {

namespace {

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

}  // namespace

DesktopTray::DesktopTray() = default;
DesktopTray::~DesktopTray() = default;

bool DesktopTray::Add(const IconPicture& picture, const std::string& tip) {
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

void DesktopTray::Modify(const IconPicture& picture, const std::string& tip) {
  if (!icon_) return;
  icon_->setIcon(ToIcon(picture));
  icon_->setToolTip(QString::fromStdString(tip));
}

void DesktopTray::Delete() { icon_.reset(); }

void DesktopTray::SetActions(const TrayActions& actions) {
  actions_ = actions;
  if (menu_) FillMenu();
}

/// A tray on the bus reports a double click as two single ones.
void DesktopTray::OnActivated(int reason) {
  const bool click = reason == QSystemTrayIcon::Trigger;
  const int64_t now = TickCount();
  const bool second =
      click && firstClick_ && now - *firstClick_ <= QApplication::doubleClickInterval();
  firstClick_ = click && !second ? std::optional(now) : std::nullopt;
  if (second || reason == QSystemTrayIcon::DoubleClick) actions_.doubleClick();
}

void DesktopTray::FillMenu() {
  menu_->clear();
  for (const TrayMenuItem& item : actions_.menu) {
    menu_->addAction(QString::fromStdString(item.caption), menu_.get(), item.action);
  }
}

bool HoldsPicture(const std::string& bytes) { return !Sizes(bytes).empty(); }

}  // namespace platform

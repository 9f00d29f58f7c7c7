#include "platform/toolkit/desktop_notifier.h"

#include <poll.h>
#include <systemd/sd-bus.h>

#include <QSocketNotifier>
#include <cstdint>
#include <cstdlib>

#include "platform/time/clock.h"

namespace platform {

namespace {

constexpr uint32_t kNewNotification = 0;
constexpr uint8_t kCritical = 2;
constexpr int kNeverExpires = 0;

constexpr int kAnswerMilliseconds = 3'000;
constexpr char kAddressVariable[] = "DBUS_SESSION_BUS_ADDRESS";
constexpr char kNoBus[] = "unix:path=/nonexistent";

/// False also when the bus refuses or closes the connection.
bool Answers(sd_bus* bus) {
  const int64_t end = TickCount() + kAnswerMilliseconds;
  while (sd_bus_is_ready(bus) == 0) {
    const int processed = sd_bus_process(bus, nullptr);
    const int64_t left = end - TickCount();
    if (processed < 0 || left <= 0) return false;
    if (processed == 0) sd_bus_wait(bus, static_cast<uint64_t>(left) * 1'000);
  }
  return sd_bus_is_ready(bus) > 0;
}

}  // namespace

/// One connection to the bus. Unlike the toolkit's, it connects and says hello without waiting.
struct DesktopNotifier::Impl {
  Impl() = default;
  ~Impl() { Close(); }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;

  bool Open() {
    if (bus) return true;
    if (sd_bus_open_user(&bus) < 0) return false;
    for (const auto type : {QSocketNotifier::Read, QSocketNotifier::Write}) {
      auto& notifier = type == QSocketNotifier::Read ? readable : writable;
      notifier.reset(new QSocketNotifier(sd_bus_get_fd(bus), type));
      QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                       [this] { Drive(); });
    }
    return true;
  }

  void Close() {
    readable.reset();
    writable.reset();
    bus = sd_bus_unref(bus);
  }

  void Drive() {
    int result = 0;
    while ((result = sd_bus_process(bus, nullptr)) > 0) continue;
    if (result < 0) return Close();
    writable->setEnabled((sd_bus_get_events(bus) & POLLOUT) != 0);
  }

  /// A notifier may be closed below its own signal.
  struct Later {
    void operator()(QSocketNotifier* notifier) const {
      notifier->setEnabled(false);
      notifier->deleteLater();
    }
  };

  sd_bus* bus = nullptr;
  std::unique_ptr<QSocketNotifier, Later> readable;
  std::unique_ptr<QSocketNotifier, Later> writable;
};

DesktopNotifier::DesktopNotifier() : impl_(std::make_unique<Impl>()) {}

DesktopNotifier::~DesktopNotifier() = default;

// Desktop Notifications 1.2, Notify: application, replaced one, icon, summary, body, actions,
// hints, milliseconds until it goes. The reply is of no interest.
void DesktopNotifier::Warn(const std::string& summary, const std::string& body) {
  if (!impl_->Open()) return;
  sd_bus_call_method_async(impl_->bus, nullptr, "org.freedesktop.Notifications",
                           "/org/freedesktop/Notifications", "org.freedesktop.Notifications",
                           "Notify", nullptr, nullptr, "susssasa{sv}i", "Varek", kNewNotification,
                           "dialog-warning", summary.c_str(), body.c_str(), 0, 1, "urgency", "y",
                           kCritical, kNeverExpires);
  impl_->Drive();
}

void LeaveSilentSessionBus() {
  sd_bus* bus = nullptr;
  if (sd_bus_open_user(&bus) < 0 || !Answers(bus)) setenv(kAddressVariable, kNoBus, 1);
  sd_bus_close_unref(bus);
}

}  // namespace platform

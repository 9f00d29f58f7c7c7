// Notifications of the desktop (the interface org.freedesktop.Notifications on the session bus).
// They are an extra: nothing waits for the bus or for the service, and nothing fails without them.
#pragma once

#include <memory>
#include <string>

namespace platform {

class DesktopNotifier final {
 public:
  /// REQUIRES a running event loop as long as it lives: what the bus did not take at once goes out
  /// from there.
  DesktopNotifier();
  ~DesktopNotifier();

  /// Shows a notification of critical urgency, which stays until the person closes it. Both texts
  /// are valid UTF-8; desktops may read marks in `body`, but never in `summary`.
  void Warn(const std::string& summary, const std::string& body);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

/// Makes the process do without a session bus that does not answer within three seconds: the
/// toolkit would wait for it with its first window. REQUIRES to be called before the application is
/// made.
void LeaveSilentSessionBus();

}  // namespace platform

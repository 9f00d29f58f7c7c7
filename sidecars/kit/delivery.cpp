#include "kit/delivery.h"

#include <csignal>
#include <ctime>
#include <sstream>

#include "kit/utf8.h"
#include "platform/runtime_error.h"

namespace sidecar {

namespace {

constexpr int kLongestTimeout = 600;
constexpr int kLongestWait = 3600;
constexpr size_t kMostWaits = 10;
/// A subject of any length leaves room for the result.
constexpr size_t kLoggedCharacters = 300;

std::vector<int> Waits(const std::string& text) {
  std::vector<int> waits;
  std::istringstream numbers(text);
  for (std::string number; numbers >> number;) {
    waits.push_back(WholeNumber(number, 0, kLongestWait));
  }
  if (waits.size() <= kMostWaits) return waits;
  throw platform::RuntimeError(platform::errors::kInvalidCall, "more than ten waits");
}

/// While it lives, the announced end of the system or of the session ends no attempt in its midst.
class HeldSignals {
 public:
  HeldSignals() {
    sigemptyset(&ends_);
    for (const int signal : {SIGTERM, SIGHUP}) sigaddset(&ends_, signal);
    sigprocmask(SIG_BLOCK, &ends_, &before_);
  }
  ~HeldSignals() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;

  /// False when the end was announced meanwhile.
  bool Wait(int seconds) const {
    const timespec time{seconds, 0};
    return sigtimedwait(&ends_, nullptr, &time) < 0;
  }

 private:
  sigset_t ends_{};
  sigset_t before_{};
};

}  // namespace

SettingReaders DeliveryReaders(DeliverySettings& settings) {
  return {{"timeout",
           [&](const std::string& value) {
             settings.timeout = WholeNumber(value, 1, kLongestTimeout);
           }},
          {"wait", [&](const std::string& value) { settings.waits = Waits(value); }}};
}

Attempt Deliver(const Delivery& delivery, Mode mode, const LogFile& log) {
  const std::string what = Shortened(delivery.what, kLoggedCharacters);
  const HeldSignals signals;
  std::vector<int> waits = mode == Mode::Event ? delivery.settings.waits : std::vector<int>();
  for (size_t tried = 0;; ++tried) {
    const Attempt attempt = delivery.attempt();
    if (attempt.result == Result::Sent) {
      log.Add(what + ": sent");
      return attempt;
    }
    if (attempt.result == Result::Refused || tried == waits.size()) {
      log.Add(what + ": not sent, given up: " + attempt.words);
      return attempt;
    }
    log.Add(what + ": not sent, next attempt in " + std::to_string(waits[tried]) +
            " s: " + attempt.words);
    if (signals.Wait(waits[tried])) continue;
    log.Add(what + ": the system ends, last attempt");
    waits.resize(tried + 1);
  }
}

}  // namespace sidecar

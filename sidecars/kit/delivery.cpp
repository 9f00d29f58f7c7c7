#include "kit/delivery.h"

#include <sstream>

#include "kit/system_end.h"
#include "kit/utf8.h"
#include "platform/errors/runtime_error.h"

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
  std::vector<int> waits = mode == Mode::Event ? delivery.settings.waits : std::vector<int>();
  for (size_t tried = 0;; ++tried) {
    Attempt attempt = delivery.attempt();
    if (attempt.result == Result::Sent) {
      log.Add(what + ": sent");
      return attempt;
    }
    const bool wasLast = tried == waits.size() || LastSecondsAreOver();
    if (attempt.result == Result::Refused || wasLast) {
      log.Add(what + ": not sent, given up: " + attempt.reason.words);
      return attempt;
    }
    log.Add(what + ": not sent, next attempt in " + std::to_string(waits[tried]) +
            " s: " + attempt.reason.words);
    if (WaitUnlessSystemEnds(waits[tried])) continue;
    log.Add(what + ": the system ends, last attempt");
    waits.resize(tried + 1);
  }
}

}  // namespace sidecar

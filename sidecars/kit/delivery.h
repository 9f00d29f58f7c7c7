// Getting one message out: attempts, the waits between them, and a line in the log for each.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "kit/bracket_line.h"
#include "kit/log_file.h"
#include "kit/settings_file.h"
#include "kit/trouble.h"

namespace sidecar {

/// Failed may mend itself: a server that is down, a network that is not up yet. Refused can't, or
/// another attempt could bring the message twice.
enum class Result { Sent, Failed, Refused };

struct Attempt {
  Result result;
  Reason reason;  ///< why it failed
};

struct DeliverySettings {
  /// Key `timeout`: seconds that an attempt may take, 1 to 600.
  int timeout = 30;
  /// Key `wait`: seconds between the attempts, up to ten numbers from 0 to 3600. A failed mains
  /// supply may have taken the network along for some minutes.
  std::vector<int> waits = {60, 180, 360};
};

/// The readers of both keys; `settings` must outlive them.
SettingReaders DeliveryReaders(DeliverySettings& settings);

struct Delivery {
  std::string what;  ///< the message in a log line: who gets it, what it is about
  DeliverySettings settings;
  std::function<Attempt()> attempt;
};

/// Tries, in Mode::Event again after each wait, until the message is out, is refused, or has been
/// tried often enough. When the system ends, an attempt that is under way may go on for the last
/// seconds, and one more follows if there is time. Returns the last attempt.
Attempt Deliver(const Delivery& delivery, Mode mode, const LogFile& log);

}  // namespace sidecar

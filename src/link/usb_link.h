// The USB link: the same commands and reply lines as on the serial link, carried in feature
// reports. One call does a whole exchange.
#pragma once

#include <cstdint>
#include <string>

namespace varek {

/// What SentCommand answers while no device is open.
extern const std::string kNotLink;

/// The arguments of the commands "S" and "SR", filled before SentCommand is called with them.
struct UsbRecord {
  int32_t ShutdownDelay = 0;      ///< minutes, for "S"
  int32_t ShutdownDelayLong = 0;  ///< minutes, for "SR"
  int32_t RestartDelay = 0;       ///< minutes, for "SR"
};

extern UsbRecord Usb;

/// Tries to find and open the device.
void Action();

/// Sends a command and returns the reply; "Not Link" while no device is open.
std::string SentCommand(const std::string& command);

}  // namespace varek

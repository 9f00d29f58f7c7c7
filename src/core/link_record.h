// The controller's link fields that more than one module needs: which link is chosen, whether it is
// up, the two serial ports, and the one command that waits for the poll cycle.
#pragma once

#include <cstdint>
#include <string>

#include "platform/ports/serial_port.h"

namespace varek {

constexpr uint8_t kNoLink = 0;
constexpr uint8_t kSerialLink = 1;
constexpr uint8_t kUsbLink = 2;

/// The port number that stands for USB; do not change, the configuration file holds it.
constexpr int16_t kUsbPort = 800;

struct LinkRecord {
  uint8_t LinkType = kNoLink;
  int16_t PortNumber = 0;       ///< 1 to 16 a COM port, 800 USB, 0 none
  int16_t LinkUp = 0;           ///< 0 down, 1 up: the poll cycle's own view, beside IsConnect
  bool StatusAccepted = false;  ///< the poll port gave a status line since the link came up
  int16_t UsbOpen = 0;          ///< 1 while the USB device is open
  bool ExitRequested = false;   ///< breaks off a running port search

  /// One slot: a new text overwrites one that still waits. Sent, and emptied, by the poll cycle.
  std::string PendingCommand;

  platform::SerialPort MSComm1;  ///< the port of the poll cycle
  platform::SerialPort MSComm2;  ///< the port of the search
};

extern LinkRecord Link;

/// Chooses USB: the link type and the port number. The poll port is given back.
void SelectUsb();
/// Points the poll port at a COM port; closed, unless it is there already.
void PointPollPort(int number);

/// Chooses the serial link on COM port `port` and points the poll port at it.
void SelectSerial(int16_t port);

}  // namespace varek

// The USB link. The unit is no HID power device in the standard's sense but a tunnel: the same
// ASCII commands and reply lines as on the serial link travel inside one vendor-defined feature
// report. One call does a whole exchange, and waits for the device.
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/ports/hid.h"

namespace varek {

/// What SentCommand answers while no device is open.
extern const std::string kNotLink;
/// What SentCommand answers for a command that does not exist on USB.
extern const std::string kNoResponse;

struct UsbRecord {
  uint16_t VendorId = 0;  ///< the pair that Connect looks for
  uint16_t ProductId = 0;
  std::unique_ptr<platform::HidDevice> UsbHandle;
  int32_t ShutdownDelay = 0;        ///< minutes, for "S"
  int32_t ShutdownDelayLong = 0;    ///< minutes, for "SR"
  int32_t RestartDelay = 0;         ///< minutes, for "SR"
  int Failures = 0;                 ///< bad exchanges and failed searches in a row, below 3
  std::set<std::string> Forbidden;  ///< paths of units that may not be opened, reported already
};

extern UsbRecord Usb;

/// Tries to find and open the device under its two identities, and sets UsbOpen. A third failure
/// in a row clears UsbOpen.
void Action();

/// Stores the pair that Connect looks for.
void SetDevice(uint16_t vendor, uint16_t product);

/// Opens the first device with the stored pair; `found` tells whether there was one.
void Connect(bool& found);

/// Sends a command and returns the reply: all 47 characters of the report for a query, nothing for
/// a command without a reply, "Not Link" while no device is open, "no response" for a command that
/// does not exist here. A "Q1" whose reply does not begin with "(" gives nothing, and the third of
/// them in a row takes the device down and gives "Not Link". "S" and "SR" take their arguments
/// from the record.
std::string SentCommand(const std::string& command);

/// Sends bytes, at most 47, padded with zeros. What the device makes of them is not known.
void SendCommandB(const std::vector<uint8_t>& bytes);

/// Reads the report `reportNumber` into `buffer`; `ok` is always true.
void GetReceive(platform::HidReport& buffer, uint8_t reportNumber, bool& ok);

}  // namespace varek

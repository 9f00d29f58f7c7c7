// USB HID devices, as far as the USB link needs them: list, open, exchange a feature report. A
// test puts a driver of its own in front of the same seam.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace platform {

/// A feature report as it goes over the wire, the report number in byte 0.
constexpr size_t kHidReportLength = 47;
using HidReport = std::array<uint8_t, kHidReportLength>;

struct HidDeviceInfo {
  std::string path;
  uint16_t vendor = 0;
  uint16_t product = 0;
};

/// An opened device; closed when it is destroyed. Both operations wait for the device.
class HidDevice {
 public:
  virtual ~HidDevice() = default;
  /// False when the device did not take it.
  virtual bool SetFeature(const HidReport& report) = 0;
  /// REQUIRES the report number in byte 0. False when the device gave nothing; `report` is then as
  /// it was.
  virtual bool GetFeature(HidReport& report) = 0;
};

class HidDriver {
 public:
  virtual ~HidDriver() = default;
  virtual std::vector<HidDeviceInfo> List() = 0;
  /// Null when the device can't be opened, for want of rights or because it has gone.
  virtual std::unique_ptr<HidDevice> Open(const std::string& path) = 0;
  /// True when it is there, and only the right to open it is missing.
  virtual bool IsForbidden(const std::string&) { return false; }
};

/// The machine's driver, or the one that has taken its place.
HidDriver& Hid();

/// Puts `driver` in the place of the machine's; nullptr restores. It must outlive its use.
void ReplaceHidDriver(HidDriver* driver);

}  // namespace platform

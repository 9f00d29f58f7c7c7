// A simulated unit on USB, in front of the same seam as the machine's HID devices and with the same
// model behind it as the simulated unit on a serial line.
#pragma once

#include <string>
#include <vector>

#include "platform/ports/hid.h"
#include "simulator/ups_model.h"

namespace varek::test {

class HidUnit final : public platform::HidDriver {
 public:
  enum class Mood {
    Good,
    Slow,        ///< takes 200 ms for a reply
    Zeros,       ///< gives a report of zeros
    Short,       ///< gives a status line of 46 bytes and a zero
    NumberOnly,  ///< gives a report that holds only the report number
    Mute,        ///< gives no report at all
  };

  /// Takes the place of the machine's devices for as long as it lives.
  HidUnit(uint16_t vendor, uint16_t product);
  ~HidUnit() override;

  std::vector<platform::HidDeviceInfo> List() override;
  std::unique_ptr<platform::HidDevice> Open(const std::string& path) override;
  bool IsForbidden(const std::string&) override { return forbidden; }

  /// Takes a command report as the unit does.
  void Take(const platform::HidReport& report);
  bool Give(platform::HidReport& report) const;

  bool plugged = true;
  bool forbidden = false;
  Mood mood = Mood::Good;
  simulator::UpsModel model{simulator::UnitDescription()};
  std::vector<platform::HidReport> sent;  ///< every command report so far
  int open = 0;                           ///< handles open at the moment

 private:
  platform::HidDeviceInfo info_;
  std::string reply_;
};

}  // namespace varek::test

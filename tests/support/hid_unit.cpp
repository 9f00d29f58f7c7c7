#include "support/hid_unit.h"

#include <algorithm>

#include "platform/time/clock.h"

namespace varek::test {

namespace {

constexpr uint8_t kReportNumber = 5;
constexpr char kPath[] = "/dev/hidraw-simulated";

class Handle final : public platform::HidDevice {
 public:
  explicit Handle(HidUnit& unit) : unit_(unit) { ++unit_.open; }
  ~Handle() override { --unit_.open; }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  bool SetFeature(const platform::HidReport& report) override {
    if (!unit_.plugged) return false;
    unit_.Take(report);
    return true;
  }
  bool GetFeature(platform::HidReport& report) override { return unit_.Give(report); }

 private:
  HidUnit& unit_;
};

}  // namespace

HidUnit::HidUnit(uint16_t vendor, uint16_t product) : info_{kPath, vendor, product} {
  platform::ReplaceHidDriver(this);
}

HidUnit::~HidUnit() { platform::ReplaceHidDriver(nullptr); }

std::vector<platform::HidDeviceInfo> HidUnit::List() {
  std::vector<platform::HidDeviceInfo> devices{{"/dev/hidraw-keyboard", 0x1234, 0x0000}};
  if (plugged) devices.push_back(info_);
  return devices;
}

std::unique_ptr<platform::HidDevice> HidUnit::Open(const std::string& path) {
  if (!plugged || forbidden || path != kPath) return nullptr;
  return std::make_unique<Handle>(*this);
}

void HidUnit::Take(const platform::HidReport& report) {
  sent.push_back(report);
  const size_t length = report[2] - 1U;  // The carriage return is no part of the command.
  reply_ = model.Handle(std::string(report.begin() + 3, report.begin() + 3 + length)).value_or("");
}

bool HidUnit::Give(platform::HidReport& report) const {
  if (!plugged || mood == Mood::Mute || report[0] != kReportNumber) return false;
  if (mood == Mood::Slow) platform::ReplacedClock()->Wait(200);
  report.fill(0);
  if (mood == Mood::NumberOnly) report[0] = kReportNumber;
  if (mood == Mood::Zeros || mood == Mood::NumberOnly) return true;
  std::ranges::copy(reply_, report.begin());
  if (mood == Mood::Short && reply_[0] == '(') report[45] = '\r', report[46] = 0;
  return true;
}

}  // namespace varek::test

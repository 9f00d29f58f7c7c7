#include "platform/ports/hid.h"

#include <fcntl.h>
#include <hidapi/hidapi.h>
#include <unistd.h>

#include <cerrno>

namespace platform {

namespace {

class MachineDevice final : public HidDevice {
 public:
  explicit MachineDevice(hid_device* device) : device_(device) {}
  ~MachineDevice() override { hid_close(device_); }
  MachineDevice(const MachineDevice&) = delete;
  MachineDevice& operator=(const MachineDevice&) = delete;

  bool SetFeature(const HidReport& report) override {
    return hid_send_feature_report(device_, report.data(), report.size()) >= 0;
  }

  bool GetFeature(HidReport& report) override {
    HidReport answer = report;
    if (hid_get_feature_report(device_, answer.data(), answer.size()) < 0) return false;
    report = answer;
    return true;
  }

 private:
  hid_device* device_;
};

class MachineDriver final : public HidDriver {
 public:
  MachineDriver() { hid_init(); }
  ~MachineDriver() override { hid_exit(); }
  MachineDriver(const MachineDriver&) = delete;
  MachineDriver& operator=(const MachineDriver&) = delete;

  std::vector<HidDeviceInfo> List() override {
    std::vector<HidDeviceInfo> devices;
    hid_device_info* list = hid_enumerate(0, 0);
    for (const hid_device_info* info = list; info; info = info->next) {
      devices.push_back({info->path, info->vendor_id, info->product_id});
    }
    hid_free_enumeration(list);
    return devices;
  }

  std::unique_ptr<HidDevice> Open(const std::string& path) override {
    hid_device* device = hid_open_path(path.c_str());
    return device ? std::make_unique<MachineDevice>(device) : nullptr;
  }

  bool IsForbidden(const std::string& path) override {
    const int file = open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (file < 0) return errno == EACCES || errno == EPERM;
    close(file);
    return false;
  }
};

HidDriver* replacement = nullptr;

}  // namespace

HidDriver& Hid() {
  static MachineDriver machine;
  return replacement ? *replacement : machine;
}

void ReplaceHidDriver(HidDriver* driver) { replacement = driver; }

}  // namespace platform

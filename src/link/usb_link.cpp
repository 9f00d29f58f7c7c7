#include "link/usb_link.h"

#include <algorithm>
#include <optional>

#include "core/debug_lines.h"
#include "core/link_record.h"
#include "core/unit_commands.h"
#include "platform/errors/log.h"
#include "platform/text/text.h"

namespace varek {

const std::string kNotLink = "Not Link";
const std::string kNoResponse = "no response";
constexpr char kOneMinuteTest[] = "T1";  ///< the only timed test that USB takes

UsbRecord Usb;

namespace {

using platform::HidReport;

constexpr uint8_t kReportNumber = 5;
constexpr int kFailureLimit = 3;

/// The identities of the unit; do not change, they are burnt into it.
struct Identity {
  uint16_t vendor;
  uint16_t product;
};
constexpr Identity kIdentities[] = {{0xFFFF, 0x0000}, {0x0001, 0x0000}};

/// Byte 1 of a command report.
enum class Kind : uint8_t { Query = 0, Order = 2 };

struct Frame {
  Kind kind;
  std::string text;
};

/// The command of a report; only the first digits of an argument that is too long fit in.
std::string Shutdown() { return "S" + platform::ZeroPadded(Usb.ShutdownDelay, 2).substr(0, 2); }

std::string ShutdownWithRestart() {
  return "S" + platform::ZeroPadded(Usb.ShutdownDelayLong, 2).substr(0, 2) + "R" +
         platform::ZeroPadded(Usb.RestartDelay, 4).substr(0, 4);
}

/// The eleven commands that exist on USB; nothing for any other text.
std::optional<Frame> FrameFor(const std::string& command) {
  if (command == commands::kShutdown) return Frame{Kind::Order, Shutdown()};
  if (command == "SR") return Frame{Kind::Order, ShutdownWithRestart()};
  for (const char* query : {commands::kStatus, commands::kRating, commands::kIdentification}) {
    if (command == query) return Frame{Kind::Query, command};
  }
  for (const char* order :
       {commands::kShortTest, commands::kTestUntilLow, kOneMinuteTest, commands::kToggleBeeper,
        commands::kStopShutdown, commands::kStopTest}) {
    if (command == order) return Frame{Kind::Order, command};
  }
  return {};
}

/// Report number, kind, count of the bytes behind it, text, carriage return.
std::vector<uint8_t> ReportBytes(const Frame& frame) {
  std::vector<uint8_t> bytes{kReportNumber, static_cast<uint8_t>(frame.kind),
                             static_cast<uint8_t>(frame.text.size() + 1)};
  bytes.insert(bytes.end(), frame.text.begin(), frame.text.end());
  bytes.push_back('\r');
  return bytes;
}

std::string ReadReply() {
  HidReport report{};
  bool ok = false;
  GetReceive(report, kReportNumber, ok);
  return std::string(report.begin(), report.end());
}

/// True when this was one failure too many; the count then begins anew.
bool CountFailure() {
  if (++Usb.Failures < kFailureLimit) return false;
  Usb.Failures = 0;
  Link.UsbOpen = 0;
  return true;
}

/// An empty report holds nothing but its number, or zeros; neither begins like a status line.
std::string CheckedStatus(const std::string& reply) {
  if (!reply.starts_with('(')) return CountFailure() ? kNotLink : std::string();
  Usb.Failures = 0;
  return reply;
}

/// The poll cycle tries again and again; each unit is reported once until it can be opened.
void TellIfForbidden(const std::string& path) {
  if (!platform::Hid().IsForbidden(path) || !Usb.Forbidden.insert(path).second) return;
  const std::string text = "USB: " + path + " is a UPS that this account may not open";
  AddEventLine(text);
  platform::LogLine(text + " (60-varek.rules, the rule for udev, lets it)");
}

}  // namespace

void Action() {
  for (const Identity& identity : kIdentities) {
    SetDevice(identity.vendor, identity.product);
    bool found = false;
    Connect(found);
    if (!found) continue;
    Link.UsbOpen = 1;
    Usb.Failures = 0;
    return;
  }
  CountFailure();
  Usb.UsbHandle.reset();
}

void SetDevice(uint16_t vendor, uint16_t product) {
  Usb.VendorId = vendor;
  Usb.ProductId = product;
}

void Connect(bool& found) {
  found = false;
  for (const platform::HidDeviceInfo& device : platform::Hid().List()) {
    if (device.vendor != Usb.VendorId || device.product != Usb.ProductId) continue;
    auto handle = platform::Hid().Open(device.path);
    if (!handle) {
      TellIfForbidden(device.path);
      continue;
    }
    Usb.Forbidden.erase(device.path);
    Usb.UsbHandle = std::move(handle);
    found = true;
    return;
  }
}

std::string SentCommand(const std::string& command) {
  if (Link.UsbOpen != 1) return kNotLink;
  const auto frame = FrameFor(command);
  if (!frame) return kNoResponse;
  SendCommandB(ReportBytes(*frame));
  if (frame->kind == Kind::Order) return {};
  const std::string reply = ReadReply();
  return command == commands::kStatus ? CheckedStatus(reply) : reply;
}

void SendCommandB(const std::vector<uint8_t>& bytes) {
  HidReport report{};
  std::copy_n(bytes.begin(), std::min(bytes.size(), report.size()), report.begin());
  if (Usb.UsbHandle) Usb.UsbHandle->SetFeature(report);
}

void GetReceive(HidReport& buffer, uint8_t reportNumber, bool& ok) {
  buffer.fill(0);
  buffer[0] = reportNumber;
  if (Usb.UsbHandle) Usb.UsbHandle->GetFeature(buffer);
  ok = true;
}

}  // namespace varek

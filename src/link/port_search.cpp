#include "link/port_search.h"

#include <utility>

#include "core/journal.h"
#include "core/link_record.h"
#include "core/unit_commands.h"
#include "link/protocol.h"
#include "link/usb_link.h"
#include "platform/errors/guard.h"
#include "platform/time/clock.h"
#include "platform/time/events.h"

namespace varek {

namespace {

constexpr int64_t kUsbMilliseconds = 7000;
constexpr int64_t kUsbAskInterval = 500;
constexpr double kUsbShare = 50;  ///< percent of the bar
constexpr int kComMilliseconds = 1000;
constexpr int kPumpMilliseconds = 10;

SearchDisplay& Display() {
  static SearchDisplay display;
  return display;
}

template <typename Call, typename... Arguments>
void Show(const Call& call, Arguments&&... arguments) {
  if (call) call(std::forward<Arguments>(arguments)...);
}

bool IsAnswer(const std::string& reply) { return reply.starts_with('('); }

/// A device that is not open, or has been taken down meanwhile, can't answer.
void OpenUsb() {
  platform::Guarded(places::kSearchUsb, [] {
    if (Link.UsbOpen == 0) Action();
  });
}

/// Asks only when the clock lands on a multiple of the interval, hence seldom and unevenly: bad
/// replies count towards the failures of a link that may be working beside the search.
std::string AskUsb() {
  std::string reply;
  const int64_t start = platform::TickCount();
  int64_t elapsed = 0;
  while (!IsAnswer(reply) && elapsed <= kUsbMilliseconds && !Link.ExitRequested) {
    if (elapsed % kUsbAskInterval == 0) {
      OpenUsb();
      reply = SentCommand(commands::kStatus);
    }
    Show(Display().progress, static_cast<double>(elapsed) / kUsbMilliseconds * kUsbShare);
    platform::SpinEvents();
    elapsed = platform::TickCount() - start;
  }
  return reply;
}

bool SearchUsb() {
  Show(Display().label, "USB");
  const std::string reply = AskUsb();
  return IsStatusLine(reply);
}

void OpenSearchPort(int number) {
  platform::SerialPort& port = Link.MSComm2;
  port.Close();
  // The poll cycle may be on this very port, with no unit there or none that it understands.
  if (Link.MSComm1.CommPort() == number) Link.MSComm1.Close();
  port.SetCommPort(number);
  platform::Guarded(places::kSearchOpen, [&port] {
    port.Open();
    port.Output(commands::kStatus + std::string("\r"));
  });
}

/// A unit that is being polled need not be asked. A modem, whose every line keeps the link up, is
/// no unit: its port is asked like any other.
bool IsWorkingLink(int number) {
  return Link.LinkType == kSerialLink && Link.LinkUp == 1 && Link.StatusAccepted &&
         Link.MSComm1.CommPort() == number;
}

bool AnswersOnCom(int number) {
  Show(Display().label, "COM" + std::to_string(number));
  if (IsWorkingLink(number)) return true;
  OpenSearchPort(number);
  // A port that can't be opened has nothing to wait for.
  const bool answers =
      Link.MSComm2.PortOpen() && IsAnswer(WaitReply(Link.MSComm2, '\r', kComMilliseconds));
  platform::Guarded(places::kSearchClose, [] { Link.MSComm2.Close(); });
  return answers;
}

/// The bar goes on from about half to full.
double ComProgress(int number) { return (number + 17) / 34.0 * 100; }

void SearchCom(int16_t& port) {
  for (int number = kFirstComPort; number <= kLastComPort && !Link.ExitRequested; ++number) {
    if (AnswersOnCom(number)) {
      Show(Display().progress, 100.0);
      port = static_cast<int16_t>(number);
      PointPollPort(number);
      return;
    }
    platform::DoEvents();
    Show(Display().progress, ComProgress(number));
  }
}

bool searching = false;

/// Marks the one search that may run, however it ends.
struct SearchRunning {
  SearchRunning() { searching = true; }
  ~SearchRunning() { searching = false; }
  SearchRunning(const SearchRunning&) = delete;
  SearchRunning& operator=(const SearchRunning&) = delete;
};

}  // namespace

void SetSearchDisplay(SearchDisplay display) { Display() = std::move(display); }

void findport(int16_t& port) {
  if (searching) return;
  const SearchRunning running;
  port = 0;
  Show(Display().open);
  if (SearchUsb()) {
    port = kUsbPort;
  } else {
    SearchCom(port);
  }
  Show(Display().close);
}

void SetPort(int16_t port) {
  if (port == Link.PortNumber) return;
  if (Link.UsbOpen == 1) Usb.UsbHandle.reset();  // UsbOpen follows when no reply comes any more.
  Link.MSComm1.Close();
  if (port == kUsbPort) {
    SelectUsb();
    if (Link.UsbOpen == 0) Action();
  } else if (port != 0) {
    SelectSerial(port);
    platform::IgnoreErrors([] { Link.MSComm1.Open(); });
  }
}

std::string WaitReply(platform::SerialPort& port, char terminator, int timeoutMs) {
  std::string text;
  const int64_t start = platform::TickCount();
  do {
    platform::WaitForEvents(kPumpMilliseconds);
    text += port.Input();
  } while (text.find(terminator) == std::string::npos && platform::TickCount() - start < timeoutMs);
  return text.find(terminator) == std::string::npos ? std::string() : text;
}

void RequestSearchExit() { Link.ExitRequested = true; }

}  // namespace varek

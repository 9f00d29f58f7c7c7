// Which port the unit is on: the search over USB and the COM ports, and the change of the working
// link. The search uses a port of its own, so that it can run beside a working link; the poll ticks
// and everything else go on while it waits.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/ports/serial_port.h"

namespace varek {

constexpr int kFirstComPort = 1;
constexpr int kLastComPort = 16;

/// How a search shows itself; the dashboard fills it in. Any of them may be empty.
struct SearchDisplay {
  std::function<void()> open;  ///< makes the progress box visible, opening its window if need be
  std::function<void(const std::string& name)> label;  ///< what is being tried: "USB", "COM1"
  std::function<void(double percent)> progress;        ///< 0 to 100
  std::function<void()> close;
};

void SetSearchDisplay(SearchDisplay display);

/// Looks for the unit on USB for seven seconds, then on COM ports 1 to 16 for a second each.
/// `port` becomes the number found (800 for USB), or 0 when nothing answers or the search is broken
/// off; it stays as it is when another search is going on. A COM port that is found becomes that
/// of the poll port; one on which the link is up counts as found when
/// a status line has come there since.
void findport(int16_t& port);

/// Switches the working link to COM port 1 to 16 or to USB (800). The present number changes
/// nothing; 0 closes what is open, which the poll cycle opens again. A port that can't be opened is
/// tried again by the poll cycle.
void SetPort(int16_t port);

/// Reads until `terminator` has come or `timeoutMs` have passed; all that was read, or nothing
/// without the terminator. Other handlers run meanwhile.
std::string WaitReply(platform::SerialPort& port, char terminator, int timeoutMs);

/// Breaks off a running search.
void RequestSearchExit();

}  // namespace varek

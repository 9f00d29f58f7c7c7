// The poll cycle: a half-second tick that alternates between a send step and a receive step, keeps
// the link state, hands replies to the parsers and raises the two link events. Nobody else talks
// to the unit.
#pragma once

#include <cstdint>
#include <string>

namespace varek {

class PollCycle final {
 public:
  /// A serial line that has not ended after this many bytes is dropped.
  static constexpr size_t kLineLimit = 4096;

  /// One tick of the 500 ms timer: a send step, or a receive step, in turn.
  void COMtime_Timer();

  /// The two steps; called by COMtime_Timer alone. Errors on a serial link become lines of the
  /// error list.
  void SendTimer_Timer();
  void ReceiveTimer_Timer();

 private:
  void SendSerial();
  void SendSpareCommand();
  void SendUsb();

  void DeclareLinkLost();
  void ReceiveSerial();
  bool TakeLine();
  void CountMiss();
  void ReceiveUsb();
  void ReceiveUsbStatus();
  void ReceiveUsbSpare();
  void BringLinkUp();

  uint8_t Phase = 0;      ///< which half of the two-step cycle comes next
  int32_t MissCount = 0;  ///< receive steps in a row without a complete line, at most 999
  bool SendToggle = false;
  std::string RxBuffer;   ///< serial input that holds no carriage return yet
  std::string LastReply;  ///< the last complete reply
};

}  // namespace varek

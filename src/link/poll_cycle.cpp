#include "link/poll_cycle.h"

#include <algorithm>

#include "core/data_center.h"
#include "core/journal.h"
#include "core/link_record.h"
#include "core/unit_commands.h"
#include "link/protocol.h"
#include "link/usb_link.h"
#include "platform/errors/guard.h"
#include "platform/text/text.h"
#include "records/notices/event_record.h"

namespace varek {

namespace {

constexpr int32_t kMissLimit = 2;
constexpr int32_t kMissCap = 999;
/// Makes the next receive step declare the link lost.
constexpr int32_t kMissAtOnce = 100;

void SendLine(const std::string& command) { Link.MSComm1.Output(command + "\r"); }

bool IdentificationIsEmpty() {
  return DataCenter.identity.UPSModel.empty() && DataCenter.identity.UPSVersion.empty() &&
         DataCenter.identity.UPSCompany.empty();
}

int32_t Minutes(std::string_view digits) {
  return static_cast<int32_t>(platform::RoundHalfEven(platform::LenientNumber(digits)));
}

/// On USB the arguments of a shutdown command travel beside it.
void SendUsbCommand(const std::string& command) {
  constexpr size_t kShortestWithRestart = 6;
  if (!IsShutdownCommand(command)) {
    SentCommand(command);
  } else if (command.size() < kShortestWithRestart) {
    Usb.ShutdownDelay = Minutes(platform::Middle(command, 2));
    SentCommand(commands::kShutdown);
  } else {
    Usb.ShutdownDelayLong = Minutes(platform::Middle(command, 2, 2));
    Usb.RestartDelay = Minutes(platform::Middle(command, 5, 4));
    SentCommand("SR");
  }
}

}  // namespace

void PollCycle::COMtime_Timer() {
  SendToggle = !SendToggle;
  if (SendToggle) {
    SendTimer_Timer();
  } else {
    ReceiveTimer_Timer();
  }
}

void PollCycle::SendTimer_Timer() {
  if (Link.LinkType == kSerialLink) {
    platform::Guarded(places::kSend, [this] { SendSerial(); });
  } else if (Link.LinkType == kUsbLink) {
    SendUsb();
  }
}

void PollCycle::SendSerial() {
  if (Link.LinkUp == 0) {
    if (!Link.MSComm1.PortOpen()) Link.MSComm1.Open();
    SendLine(commands::kStatus);
  } else if (Phase == 0) {
    SendLine(commands::kStatus);
    Phase = 1;
  } else {
    SendSpareCommand();
    Phase = 0;
  }
}

/// The half cycle without a status query: a waiting command first, then what is not known yet.
void PollCycle::SendSpareCommand() {
  if (!Link.PendingCommand.empty()) {
    SendLine(platform::Trim(Link.PendingCommand));
    Link.PendingCommand.clear();
  } else if (DataCenter.ratings.RatingVoltage == 0) {
    SendLine(commands::kRating);
  } else if (IdentificationIsEmpty()) {
    SendLine(commands::kIdentification);
  }
}

void PollCycle::SendUsb() {
  if (Link.LinkUp == 1) return;  // The whole exchange belongs to the receive step.
  if (Link.UsbOpen == 0) Action();
  LastReply = SentCommand(commands::kStatus);
  if (LastReply.starts_with('(')) BringLinkUp();
}

void PollCycle::ReceiveTimer_Timer() {
  if (Link.LinkType == kUsbLink) {
    DeclareLinkLost();
    ReceiveUsb();
    return;
  }
  platform::Guarded(places::kReceive, [this] {
    DeclareLinkLost();
    if (Link.LinkType == kSerialLink) ReceiveSerial();
  });
}

void PollCycle::DeclareLinkLost() {
  if (MissCount <= kMissLimit || Link.LinkUp != 1) return;
  Link.LinkUp = 0;
  DataCenter.IsConnect = kClear;
  MissCount = 0;  // Before the event, whose failure would declare the next link lost at once.
  EventLinkLost();
}

void PollCycle::BringLinkUp() {
  if (Link.LinkUp == 1) return;
  Link.LinkUp = 1;
  Link.StatusAccepted = false;
  DataCenter.IsConnect = kSet;
  EventLinkUp();
}

void PollCycle::ReceiveSerial() {
  RxBuffer += platform::Trim(Link.MSComm1.Input());
  if (TakeLine()) {
    // Any complete line is a sign of life, even one that no parser accepts.
    MissCount = 0;
    BringLinkUp();
  } else if (Link.LinkUp == 1) {
    CountMiss();
  }
  ParseSerialReply(LastReply);
  if (IsStatusLine(LastReply)) Link.StatusAccepted = true;
}

/// Moves the first complete line from RxBuffer to LastReply; what followed it is thrown away.
/// False, and an empty LastReply, when there is none.
bool PollCycle::TakeLine() {
  LastReply.clear();
  const size_t end = RxBuffer.find('\r');
  const bool complete = end < kLineLimit;
  if (complete) LastReply = platform::Trim(std::string_view(RxBuffer).substr(0, end + 1));
  if (complete || RxBuffer.size() >= kLineLimit) RxBuffer.clear();
  return complete;
}

void PollCycle::CountMiss() { MissCount = std::min(MissCount + 1, kMissCap); }

void PollCycle::ReceiveUsb() {
  if (Phase == 0) {
    ReceiveUsbStatus();
    Phase = 1;
  } else {
    if (Link.LinkUp == 1) ReceiveUsbSpare();  // A command waits for the link.
    Phase = 0;
  }
}

void PollCycle::ReceiveUsbStatus() {
  LastReply = SentCommand(commands::kStatus);
  if (LastReply.starts_with('(')) {
    MissCount = 0;
    BringLinkUp();
    if (IsStatusLine(LastReply)) ParseStatus(LastReply);
  } else if (LastReply == kNotLink && Link.LinkUp == 1) {
    MissCount = kMissAtOnce;
  }
}

void PollCycle::ReceiveUsbSpare() {
  if (!Link.PendingCommand.empty()) {
    SendUsbCommand(Link.PendingCommand);
    Link.PendingCommand.clear();
  } else if (DataCenter.ratings.RatingVoltage == 0) {
    LastReply = SentCommand("F");
    if (LastReply.starts_with('#') && LastReply.size() == kUsbReportLength) ParseRating(LastReply);
  } else if (DataCenter.identity.UPSCompany.empty()) {
    LastReply = SentCommand("I");
    if (LastReply.starts_with('#')) ParseIdentification(LastReply);
  }
}

}  // namespace varek

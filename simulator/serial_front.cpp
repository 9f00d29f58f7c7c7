#include "simulator/serial_front.h"

#include <utility>

namespace simulator {

namespace {

using namespace std::chrono_literals;
using namespace std::string_view_literals;

constexpr size_t kLongestCommand = 1024;
constexpr std::chrono::milliseconds kSplitPause = 600ms;

/// Holds what a careless reader trips over: the end of a C string, bytes that are no text, the
/// first characters of good lines in the wrong place.
constexpr std::string_view kRubbish = "?\x00\xff.\x80 ~~\x01\x7f.9 \xfe\x00\x1b\xc3( #0\xaa\r"sv;

}  // namespace

SerialFront::SerialFront(PollLoop& loop, UpsModel& model, LineFaults& faults, CommandLog& log,
                         const std::string& link)
    : loop_(loop), model_(model), faults_(faults), log_(log), received_('\r', kLongestCommand) {
  if (!link.empty()) terminal_.LinkAs(link);
  loop_.Watch(terminal_.CloseEventFd(), [this] { terminal_.GiveUpHold(); });
  loop_.Watch(terminal_.Fd(), [this] { Receive(); });
}

void SerialFront::Receive() {
  std::string bytes;
  if (ReadSome(terminal_.Fd(), bytes) != ReadResult::Data) return;
  for (const auto& line : received_.Feed(bytes)) {
    if (!line.tooLong) Answer(line.text);
  }
}

void SerialFront::Answer(std::string_view command) {
  log_.Write(command);
  auto reply = model_.Handle(command);
  if (!reply || faults_.silent) return;
  if (command == "Q1" && std::exchange(faults_.garbleNext, false)) reply = std::string(kRubbish);
  Send(std::move(*reply));
}

void SerialFront::Send(std::string reply) {
  SendRest();
  if (faults_.splitAt > 0 && faults_.splitAt < reply.size()) {
    rest_ = reply.substr(faults_.splitAt);
    reply.resize(faults_.splitAt);
    loop_.After(kSplitPause, [this, number = ++splitReplies_] {
      if (number == splitReplies_) SendRest();
    });
  }
  // As on a wire, what nobody reads is lost.
  WriteAll(terminal_.Fd(), reply);
}

void SerialFront::SendRest() { WriteAll(terminal_.Fd(), std::exchange(rest_, {})); }

}  // namespace simulator

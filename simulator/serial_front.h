// The unit's serial socket: takes commands that end in a carriage return from a pseudo-terminal,
// logs them, hands them to the model and sends what it replies, as far as the line is sound.
#pragma once

#include <string>
#include <string_view>

#include "simulator/command_log.h"
#include "simulator/line_buffer.h"
#include "simulator/line_faults.h"
#include "simulator/poll_loop.h"
#include "simulator/pseudo_terminal.h"
#include "simulator/ups_model.h"

namespace simulator {

class SerialFront final {
 public:
  /// Makes the pseudo-terminal and, unless it is empty, the `link` to it. Everything that is passed
  /// must outlive the front. Throws std::system_error.
  SerialFront(PollLoop& loop, UpsModel& model, LineFaults& faults, CommandLog& log,
              const std::string& link);
  SerialFront(const SerialFront&) = delete;
  SerialFront& operator=(const SerialFront&) = delete;

  const std::string& Path() const { return terminal_.Path(); }

 private:
  void Receive();
  void Answer(std::string_view command);
  void Send(std::string reply);
  void SendRest();

  PollLoop& loop_;
  UpsModel& model_;
  LineFaults& faults_;
  CommandLog& log_;
  PseudoTerminal terminal_;
  LineBuffer received_;
  std::string rest_;  ///< second part of a split reply, while it is held back
  int splitReplies_ = 0;
};

}  // namespace simulator

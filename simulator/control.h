// The ways by which control commands come in: standard input and the clients of a local socket.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/system/descriptor.h"
#include "simulator/control_commands.h"
#include "simulator/descriptor_io.h"
#include "simulator/line_buffer.h"
#include "simulator/poll_loop.h"

namespace simulator {

class Control final {
 public:
  /// Both must outlive this.
  Control(PollLoop& loop, ControlCommands& commands) : loop_(loop), commands_(commands) {}
  /// Removes the socket.
  ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  /// Takes commands from standard input until it ends, and answers on standard output.
  void ServeStandardInput();

  /// Takes commands at the local socket `path`, which only its owner may use. A socket that nobody
  /// serves any more is replaced, its folder made when missing. Throws std::system_error.
  void Listen(const std::string& path);

 private:
  struct Client {
    platform::Descriptor socket;
    LineBuffer received;
  };

  void Accept();
  void ReadClient(int fd);
  /// False when an answer can't be delivered.
  bool Serve(LineBuffer& received, std::string_view bytes, int answerFd);
  void Drop(int fd);

  PollLoop& loop_;
  ControlCommands& commands_;
  platform::Descriptor listener_;
  std::string path_;
  std::map<int, Client> clients_;
};

}  // namespace simulator

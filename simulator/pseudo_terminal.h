// A pseudo-terminal that behaves like a serial port: it outlives the programs that open and close
// it, and each of them finds it free.
#pragma once

#include <string>

#include "platform/system/descriptor.h"
#include "simulator/descriptor_io.h"

namespace simulator {

class PseudoTerminal final {
 public:
  /// Throws std::system_error when the system gives none.
  PseudoTerminal();
  /// Removes the link, when it still leads here.
  ~PseudoTerminal();

  /// Makes `link` a symbolic link to the terminal, in the place of any older link, and its folder
  /// when that is missing. Throws std::system_error, also when a file that is no link is in the
  /// way.
  void LinkAs(const std::string& link);

  /// The side of the unit; does not block.
  int Fd() const { return master_.Number(); }
  /// The path that the other side opens.
  const std::string& Path() const { return path_; }

  /// Readable after a program has closed the other side; GiveUpHold is to be called then.
  int CloseEventFd() const { return closeEvents_.Number(); }
  /// Ends an exclusive hold. A real port loses it with its last user; here the terminal stays open,
  /// and a program that was killed would keep every later one out.
  void GiveUpHold();

 private:
  platform::Descriptor master_;
  platform::Descriptor slave_;  ///< kept open, for the master fails while no one has the other side
  platform::Descriptor closeEvents_;
  std::string path_;
  std::string link_;
};

}  // namespace simulator

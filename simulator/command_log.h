// The log of the commands that a unit receives: one line a command, written at once.
#pragma once

#include <string>
#include <string_view>

#include "platform/system/descriptor.h"
#include "simulator/descriptor_io.h"

namespace simulator {

class CommandLog final {
 public:
  /// Adds to the file `path`, or writes to standard output for "-", or nowhere when it is empty.
  /// Makes the folder when it is missing. Throws std::system_error.
  explicit CommandLog(const std::string& path);

  /// Local time as 'YYYY-MM-DD HH:MM:SS.mmm', a blank, and the command, in which every byte but
  /// printable ASCII is written as \xNN and a backslash is doubled.
  void Write(std::string_view command);

 private:
  platform::Descriptor file_;
  int fd_ = -1;
};

}  // namespace simulator

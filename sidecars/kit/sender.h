// The frame of a program that sends one message and ends: command line, delivery, log, and the
// message box that ends a test. The message itself is made by the program's own part.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "kit/delivery.h"
#include "kit/log_file.h"

namespace sidecar {

struct Sender {
  std::string name;   ///< of its files: <name>.conf and <name>.log in the program folder
  size_t fieldCount;  ///< of its command line
  size_t firstText;   ///< number of the box's title; the texts of success and failure follow
  /// Makes the message that the fields describe, by the settings in the file `conf`. Throws
  /// CannotSend when the fields or the settings don't allow one, and RuntimeError when it fails.
  std::function<Delivery(const std::vector<std::string>& fields, const std::string& conf,
                         const LogFile& log)>
      prepare;
};

/// What main returns: 0 when the message is out, 1 when it is not.
int RunSender(const Sender& sender, int argc, char** argv);

}  // namespace sidecar

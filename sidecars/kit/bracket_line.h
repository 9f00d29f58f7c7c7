// The one argument of a sender: fields, each in square brackets, with nothing between them. The
// last two of every line are the mode and the language. There is no escaping, so a field may hold
// a lone bracket but not "][".
#pragma once

#include <string>
#include <vector>

namespace sidecar {

/// Event: nobody watches, retries are worth while. Test: a person waits for the result.
enum class Mode { Event, Test };

struct LineEnd {
  Mode mode = Mode::Event;
  int language = 0;  ///< 0 to 2
};

/// How the line ends, also when a bracket further ahead has broken it: the person who runs a test
/// gets a result even then. Event and 0 when that can't be read.
LineEnd ReadLineEnd(const std::string& line);

/// The `count` fields of `line`. Throws CannotSend, which tells what is wrong but none of the
/// fields, since they hold passwords.
std::vector<std::string> BracketFields(const std::string& line, size_t count);

}  // namespace sidecar

// What the warning window is given to say.
#pragma once

#include <string>
#include <vector>

namespace sidecar {

/// The text of an event from the command line's `arguments`: one argument, "UPS" and the text
/// directly behind it. Throws RuntimeError 5 that tells what is wrong.
std::string EventText(const std::vector<std::string>& arguments);

/// `text` as one harmless line of valid UTF-8: control characters, line ends and marks of direction
/// become blanks, blanks at either end go, and it is cut behind 2000 characters.
std::string PlainLine(const std::string& text);

}  // namespace sidecar

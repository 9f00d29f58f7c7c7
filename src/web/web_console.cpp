#include "web/web_console.h"

namespace varek {

// Empty entries: the console is still to be built.

void StartWebConsole() {}

void StopWebConsole() {}

std::string NewKey() { return {}; }

}  // namespace varek

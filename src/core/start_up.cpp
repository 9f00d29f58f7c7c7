#include "core/start_up.h"

namespace varek {

// Empty entries: the kinds of start are still to be built. Until then every start is an ordinary
// program that finds no other copy.

void HandleCommandLine() {}

bool AnotherInstanceRuns() { return false; }

void SendShow() {}

bool RunsAsService() { return false; }

void StopService() {}

}  // namespace varek

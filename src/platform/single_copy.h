// One running copy for each program folder: a lock, and a local socket over which a later copy can
// hand the first one a short text. Both stand in the user's runtime folder under a name made from
// the program folder's path.
#pragma once

#include <functional>
#include <string>

namespace platform {

/// Takes the lock, unless this process has it already; true when another process has it. The lock
/// is given back when the process ends, in whatever way.
bool AnotherCopyRuns();

/// Gives the lock back, for the copy that is to run in the place of this one.
void ReleaseCopyLock();

/// Listens for texts from later copies. REQUIRES the lock. `execute` is called from the event loop
/// with each text, at most 64 bytes long. Without a socket it stays silent.
void ListenToCopies(std::function<void(const std::string& text)> execute);

/// Stops listening, so that this process does not answer itself.
void StopListening();

/// Hands `text` to the copy that runs; waits a tenth of a second at most and tells nothing of a
/// failure.
void SendToCopy(const std::string& text);

}  // namespace platform

// One running copy for each program folder, whatever account and environment it has: a lock, and a
// local socket over which a later copy can hand the first one a short text and get an answer. Both
// stand in the program folder, so that nobody can have them who may not write there.
#pragma once

#include <functional>
#include <string>

namespace platform {

/// Takes the lock, unless this process has it already; true when another process has it, or answers
/// on the socket: that is how a copy finds out which may not write in the folder itself. The lock
/// is given back when the process ends, in whatever way. A copy that finds no place for the lock
/// runs all the same.
bool AnotherCopyRuns();

/// Gives the lock back, for the copy that is to run in the place of this one.
void ReleaseCopyLock();

/// Listens for texts from later copies of any account. REQUIRES that no other copy runs. `execute`
/// is called from the event loop with each text, at most 64 bytes long; what it returns is the
/// answer. Without a socket it stays silent.
void ListenToCopies(std::function<std::string(const std::string& text)> execute);

/// Stops listening, so that this process does not answer itself.
void StopListening();

/// Hands `text` to the copy that runs and gives its answer; empty when it has none within a second,
/// and on any failure.
std::string SendToCopy(const std::string& text);

}  // namespace platform

// The end of the system, of the service or of the session, which SIGTERM and SIGHUP announce. What
// is under way gets some seconds more; nothing that hangs keeps the process longer.
#pragma once

namespace sidecar {

/// From now on the two signals end the process no more at once. Five seconds behind the first of
/// them it ends all the same, wherever it stands.
void ExpectSystemEnd();

/// True from the announcement on.
bool SystemEnds();

/// True when what is under way must be left, so that its failure can still be logged.
bool LastSecondsAreOver();

/// Waits so many seconds; false, and at once, when the end is announced.
bool WaitUnlessSystemEnds(int seconds);

}  // namespace sidecar

// What the hint remembers: that it was given in this desktop session, and that it is not wanted.
#pragma once

namespace sidecar {

/// Remembers that the hint is given in this session; true when that was so already. A session is
/// known by its number and the machine's start. Without a place to remember it is always false.
bool WasGivenInThisSession();

/// True once SilenceHint was called for this program folder, or by this user.
bool IsHintSilenced();

/// For good: by a file in the program folder, or in the user's configuration folder where that
/// can't be written. Throws RuntimeError 75 when neither can.
void SilenceHint();

}  // namespace sidecar

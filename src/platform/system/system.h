// The operating system: its orderly shutdown, its language, its address.
#pragma once

#include <string>

namespace platform {

/// Starts an orderly, unforced shutdown of the operating system and returns. The command line is
/// that of VAREK_SHUTDOWN_COMMAND, else "systemctl poweroff"; the rights are those of the
/// process. Throws RuntimeError when the command can't be started.
void ShutDownSystem();

/// The system's language as a locale number: 1028 Taiwan, 2052 mainland China, 1033 any other.
int SystemLocaleId();

/// The machine's primary IPv4 address as dotted text; "127.0.0.1" when it has no network.
std::string LocalAddress();

}  // namespace platform

// Starting other programs without waiting for them.
#pragma once

#include <functional>
#include <string>

namespace platform {

/// How the program's first window is to come up. A hint: desktops without this notion ignore it.
enum class WindowStyle { NormalFocus, MinimizedFocus, NormalNoFocus };

/// Starts `program` (a host path in which backslashes also separate folders) and gives it `rest`,
/// byte for byte, as its one argument; an empty `rest` gives no argument. A name ending in ".exe"
/// is looked up as it stands and then without the ending. Throws RuntimeError 53 when there is no
/// such program and 75 when it can't be started. Gives the number of its process, for IsRunning.
int StartProgram(const std::string& program, const std::string& rest, WindowStyle style);

/// True until the process that StartProgram has given has ended; false for 0.
bool IsRunning(int process);

/// Starts a whole command line, quoting and all, as a person would type it. A program in it that
/// is missing shows only on standard error.
void StartCommandLine(const std::string& commandLine);

/// Takes the place of StartProgram for tests; nullptr restores.
using ProgramStarter =
    std::function<void(const std::string& program, const std::string& rest, WindowStyle style)>;
void ReplaceProgramStarter(ProgramStarter starter);

}  // namespace platform

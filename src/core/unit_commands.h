// The commands that the unit understands, and the two restart arguments of its shutdown. Serial
// lines end them with a carriage return, USB wraps them into a report.
#pragma once

#include <string>

namespace varek {

namespace commands {
inline constexpr char kStatus[] = "Q1";
inline constexpr char kRating[] = "F";
inline constexpr char kIdentification[] = "I";
inline constexpr char kShortTest[] = "T";  ///< ten seconds; with digits behind it, so many minutes
inline constexpr char kTestUntilLow[] = "TL";
inline constexpr char kStopTest[] = "CT";
inline constexpr char kStopShutdown[] = "C";
inline constexpr char kToggleBeeper[] = "Q";
/// The shutdown begins with this letter; no other command does.
inline constexpr char kShutdown[] = "S";
inline constexpr char kRestart[] = "R";  ///< inside a shutdown
}  // namespace commands

/// A restart argument that gives the shutdown command without a restart part.
constexpr int kNoRestart = -1;

/// What stands for no timed restart where a person or the schedule asks for the shutdown; the unit
/// gets it as it stands, about a week of minutes.
constexpr int kUntimedRestart = 9999;

/// "S" with `minutes` in at least two digits and, unless `restartMinutes` is kNoRestart, "R" with
/// those in at least four.
std::string ShutdownCommand(int minutes, int restartMinutes);

/// True for every form of the shutdown.
bool IsShutdownCommand(const std::string& command);

}  // namespace varek

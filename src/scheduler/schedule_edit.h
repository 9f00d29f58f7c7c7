// Changing the schedule: saving from the dialog, opening an entry in it, deleting by its rules. The
// calendar window and the web pages call these, so that no rule stands twice. Each procedure that
// changes the table also reloads today's run list. Database errors propagate as RuntimeError.
#pragma once

#include <string>

#include "scheduler/schedule_model.h"

namespace varek {

/// The date selected in the calendar.
struct SelectedDay {
  int year = 0;
  int month = 0;
  int day = 0;
};

/// The fields of the dialog. Times are "hh:mm".
struct ScheduleForm {
  std::string time = "12:00";
  int action = 0;       ///< place in kActionLetters, 0 to 7
  int recurrence = 0;   ///< 0 once, 1 daily, 2 weekly, 3 monthly
  int restartDays = 0;  ///< 0 to 6 days after the action; counts for R and B alone, as restartTime
  std::string restartTime = "12:00";
};

/// Minutes from `time` to `restartTime` so many days later; negative when that lies before it.
int MinutesToRestart(const std::string& time, int restartDays, const std::string& restartTime);
/// `event` of an R or B: the letter and four digits, with a sign before them when it is negative.
std::string RestartCode(char letter, int minutes);
/// `note` of an R or B, as NoteText reads it.
std::string RestartNote(int restartDays, const std::string& restartTime);

/// Adds an entry that begins on `day`. Returns the message to show when the restart is refused
/// (a delay of 1 to 9999 minutes after the unit has turned off is taken), empty when it was saved.
std::string SaveNewEntry(const ScheduleForm& form, const SelectedDay& day);
/// Writes over entry `number`, which begins anew on `day`. As SaveNewEntry, but a delay of 0 is
/// taken, and so is the restart that the entry has already, whatever its delay. An entry that is no
/// R or B keeps the note it had. Does nothing when the entry has gone.
std::string SaveEditedEntry(int number, const ScheduleForm& form, const SelectedDay& day);

/// Fills the dialog from entry `number`; what the entry doesn't tell stays as it is. False, and
/// nothing filled, when the entry has gone.
bool OpenEntry(int number, ScheduleForm& form);

enum class Deletion {
  None,     ///< there is no such entry, or it recurs in no known way
  Deleted,  ///< the row is gone
  Ask,      ///< an entry that repeats: nothing deleted yet, DeleteByChoice takes the answer
};

/// Deletes a single entry or a mark.
Deletion DeleteEntry(int number);

/// What can be deleted of an entry that repeats, in the order of the four buttons: this date, the
/// whole entry, this weekday from now on, this day of the month from now on.
inline constexpr std::string_view kDeleteChoices = "NAWM";

/// Carries out one of kDeleteChoices for entry `number`: A deletes it with its marks, each other
/// adds a mark that begins on `day` and carries `time`.
void DeleteByChoice(char choice, int number, const SelectedDay& day, const std::string& time);

}  // namespace varek

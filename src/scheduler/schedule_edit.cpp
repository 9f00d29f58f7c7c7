#include "scheduler/schedule_edit.h"

#include <algorithm>

#include "core/data_center.h"
#include "platform/text/text.h"
#include "scheduler/schedule_rows.h"
#include "texts/language.h"

namespace varek {

namespace {

constexpr int kMinutesPerDay = 24 * 60;
constexpr int kLongestRestart = 9999;
constexpr int kMostRestartDays = 6;
constexpr size_t kNoteLength = 6;  ///< a digit of days, then "hh:mm"
constexpr char kEditRefused[] = "時間設定錯誤";
/// In the order of the recurrence list.
constexpr std::string_view kRecurrenceLetters = "NDWM";

int Number(std::string_view text) { return static_cast<int>(platform::LenientNumber(text)); }

int MinuteOfDay(const std::string& time) {
  return Number(platform::Middle(time, 1, 2)) * 60 + Number(platform::Middle(time, 4, 2));
}

std::string TimeText(int minuteOfDay) {
  return platform::ZeroPadded(minuteOfDay / 60, 2) + ":" +
         platform::ZeroPadded(minuteOfDay % 60, 2);
}

char ActionLetter(const ScheduleForm& form) {
  return kActionLetters.at(static_cast<size_t>(form.action));
}

bool TakesRestart(char letter) { return letter == 'R' || letter == 'B'; }

/// Counted from the moment at which the unit turns off.
int RestartDelay(const ScheduleForm& form) {
  return MinutesToRestart(form.time, form.restartDays, form.restartTime) -
         DataCenter.settings.UPSShutdownBuffer;
}

bool RestartFits(const ScheduleForm& form, int shortest) {
  if (!TakesRestart(ActionLetter(form))) return true;
  const int delay = RestartDelay(form);
  return delay >= shortest && delay <= kLongestRestart;
}

/// The row that the dialog describes, without its number.
ScheduleEntry Described(const ScheduleForm& form, const SelectedDay& day) {
  const char letter = ActionLetter(form);
  const char recurrence = kRecurrenceLetters.at(static_cast<size_t>(form.recurrence));
  ScheduleEntry entry;
  entry.date = ScheduleDate(day.year, day.month, day.day);
  entry.time = form.time;
  entry.event = letter;
  entry.rept = RecurrenceCode(recurrence, day.year, day.month, day.day);
  if (TakesRestart(letter)) {
    entry.event = RestartCode(letter, RestartDelay(form));
    entry.note = RestartNote(form.restartDays, form.restartTime);
  }
  return entry;
}

bool TellsRestart(const std::string& note) {
  return note.size() == kNoteLength && note[3] == ':' && note[0] >= '0' &&
         note[0] <= '0' + kMostRestartDays;
}

/// The note holds the day and the time as they were chosen. The delay alone does not tell them: the
/// buffer may have changed since, and the web console does not take it off. Without a note the
/// delay has to do.
void FillRestart(const ScheduleEntry& entry, ScheduleForm& form) {
  if (TellsRestart(entry.note)) {
    form.restartDays = entry.note[0] - '0';
    form.restartTime = entry.note.substr(1);
    return;
  }
  const int moment =
      MinuteOfDay(entry.time) + RestartMinutes(entry.event) + DataCenter.settings.UPSShutdownBuffer;
  form.restartDays = std::min(moment / kMinutesPerDay, kMostRestartDays);
  form.restartTime = TimeText(moment % kMinutesPerDay);
}

void FillAction(const ScheduleEntry& entry, ScheduleForm& form) {
  const size_t action = entry.event.empty() ? kMarkAction : kActionLetters.find(entry.event[0]);
  if (action >= kMarkAction) return;
  form.action = static_cast<int>(action);
  if (TakesRestart(entry.event[0])) FillRestart(entry, form);
}

/// No recurrence, and an unknown one such as "null", stand for once.
void FillRecurrence(const std::string& rept, ScheduleForm& form) {
  const size_t place = rept.empty() ? 0 : kRecurrenceLetters.find(rept[0]);
  form.recurrence = place == std::string_view::npos ? 0 : static_cast<int>(place);
}

void Fill(const ScheduleEntry& entry, ScheduleForm& form) {
  form.time = entry.time;
  FillAction(entry, form);
  FillRecurrence(entry.rept, form);
}

/// True when the form asks for the very restart that the entry has. Its delay stays then, though
/// today's buffer would give another one.
bool KeepsRestart(const ScheduleForm& form, const ScheduleEntry& entry) {
  if (!TakesRestart(ActionLetter(form))) return false;
  ScheduleForm saved;
  Fill(entry, saved);
  return saved.action == form.action && saved.time == form.time &&
         saved.restartDays == form.restartDays && saved.restartTime == form.restartTime;
}

bool Repeats(const ScheduleEntry& entry) {
  return entry.rept.starts_with('D') || entry.rept.starts_with('W') || entry.rept.starts_with('M');
}

}  // namespace

int MinutesToRestart(const std::string& time, int restartDays, const std::string& restartTime) {
  return restartDays * kMinutesPerDay + MinuteOfDay(restartTime) - MinuteOfDay(time);
}

std::string RestartCode(char letter, int minutes) {
  return letter + platform::ZeroPadded(minutes, 4);
}

std::string RestartNote(int restartDays, const std::string& restartTime) {
  return std::to_string(restartDays) + restartTime;
}

std::string SaveNewEntry(const ScheduleForm& form, const SelectedDay& day) {
  if (!RestartFits(form, 1)) return LangText[texts::kRestartOutOfRange];
  const ScheduleEntry entry = Described(form, day);
  addschdeule(entry.date, entry.time, entry.event, entry.rept, entry.note);
  ReloadRunList();
  return {};
}

std::string SaveEditedEntry(int number, const ScheduleForm& form, const SelectedDay& day) {
  ScheduleRows rows;
  const bool exists = rows.Find(number);
  const ScheduleEntry saved = exists ? rows.Current() : ScheduleEntry();
  const bool keeps = KeepsRestart(form, saved);
  if (!keeps && !RestartFits(form, 0)) return kEditRefused;
  if (!exists) return {};
  ScheduleEntry entry = Described(form, day);
  entry.number = number;
  if (keeps) entry.event = saved.event;
  if (keeps || !TakesRestart(entry.event[0])) entry.note = saved.note;
  rows.Overwrite(entry);
  ReloadRunList();
  return {};
}

bool OpenEntry(int number, ScheduleForm& form) {
  ScheduleRows rows;
  if (!rows.Find(number)) return false;
  Fill(rows.Current(), form);
  return true;
}

Deletion DeleteEntry(int number) {
  ScheduleRows rows;
  if (!rows.Find(number)) return Deletion::None;
  const ScheduleEntry entry = rows.Current();
  if (!entry.rept.starts_with('N') && !IsMark(entry)) {
    return Repeats(entry) ? Deletion::Ask : Deletion::None;
  }
  rows.DeleteCurrent();
  ReloadRunList();
  return Deletion::Deleted;
}

void DeleteByChoice(char choice, int number, const SelectedDay& day, const std::string& time) {
  if (choice == 'A') {
    delschdeule(number);
  } else {
    addschdeule(ScheduleDate(day.year, day.month, day.day), time, "D" + std::to_string(number),
                RecurrenceCode(choice, day.year, day.month, day.day), "");
  }
  ReloadRunList();
}

}  // namespace varek

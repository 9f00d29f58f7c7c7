#include "web/pages/schedule_pages.h"

#include <array>
#include <bitset>
#include <limits>
#include <string_view>

#include "core/debug_lines.h"
#include "platform/errors/runtime_error.h"
#include "platform/text/text.h"
#include "scheduler/schedule_edit.h"
#include "scheduler/schedule_model.h"
#include "texts/language.h"
#include "web/pages/month_page.h"
#include "web/pages/page_files.h"
#include "web/pages/request_values.h"

namespace varek {

namespace {

using platform::ZeroPadded;

constexpr size_t kDayLimit = 2001;

/// By the order of the actions' letters.
constexpr std::array<const char*, kMarkAction> kActionPictures{
    "QTest.jpg",       "TestLOW.jpg",          "CancelTest.jpg",
    "shutdown.jpg",    "shutdownandstart.jpg", "SysDownUPSDown.jpg",
    "SysDownUPSR.jpg", "SysDown.jpg"};
constexpr size_t kPicturesInLine = 3;

using Actions = std::bitset<kMarkAction>;
using DayEvents = std::vector<ScheduleEntry>;

/// A day with more entries than a page takes ends the loading: what was loaded is shown, so that
/// there are buttons to delete the surplus with.
MonthTable LoadMonth(int year, int month) {
  RequireMonth(year, month);
  MonthTable table;
  if (!LoadMonthTable(year, month, kDayLimit, table)) AddEventLine("DATA EVENT ERROR");
  return table;
}

Actions ActionsOf(const DayEvents& entries) {
  Actions present;
  for (const ScheduleEntry& entry : entries) {
    if (entry.event.empty()) continue;
    const size_t action = kActionLetters.find(entry.event[0]);
    if (action < present.size()) present.set(action);
  }
  return present;
}

std::string Picture(size_t action) {
  return std::string("<img border=0 src=") + kActionPictures[action] +
         " width=32 height=32 alt=\"" + ActionName[action] + "\" >";
}

std::string DayPictures(const Actions& present) {
  std::string pictures;
  for (size_t action = 0; action < present.size(); ++action) {
    if (action > 0 && action % kPicturesInLine == 0) pictures += "<br>";
    if (present[action]) pictures += Picture(action);
  }
  return pictures;
}

std::string Cell(const std::string& value) { return "<td>" + value + "</td>"; }

/// A button up to the end of its call's argument, which names the way of deleting and the entry.
std::string ButtonHead(size_t text, const char* way, const std::string& number) {
  return DeleteButtonText[text] + "' onclick = 'delEvent(\"" + way + number + "\"";
}

/// An entry that runs once is deleted whole; a repeating one also by marks from this day on.
std::string ButtonCell(const ScheduleEntry& entry) {
  const std::string number = std::to_string(entry.number);
  const std::string open = "<input type='button' value='", close = ");' >";
  if (entry.rept.starts_with('N')) return Cell(open + ButtonHead(1, "DA", number) + close);
  const std::string next = close + open;
  return Cell(open + ButtonHead(0, "DA", number) + next + ButtonHead(1, "DN", number) + next +
              ButtonHead(2, "DW", number) + next + ButtonHead(3, "DM", number) + close);
}

std::string EntryRow(const ScheduleEntry& entry) {
  return "<tr>" + Cell(std::to_string(entry.number)) + Cell(entry.time) +
         Cell(EventCodeText(entry.event)) + Cell(NoteText(entry.note)) +
         Cell(ReptText(entry.rept)) + ButtonCell(entry) + "</tr>";
}

/// The rows of a day, without the holes that cancel marks have left.
std::string DayRows(const DayEvents& entries) {
  std::string rows;
  for (const ScheduleEntry& entry : entries) {
    if (entry.number != kHole) rows += EntryRow(entry);
  }
  return rows;
}

/// An edit as the page sends it. Times are "hh:mm".
struct Edit {
  SelectedDay day;
  std::string time;
  std::string action;  ///< a letter, or "D", a choice of deletion and the number of the entry
  std::string recurrence;
  int restartDays;
  std::string restartTime;
};

std::string TimeText(const std::string& hour, const std::string& minute) {
  return ZeroPadded(WholeNumber(hour), 2) + ":" + ZeroPadded(WholeNumber(minute), 2);
}

Edit EditFrom(const EditFields& fields) {
  return {{WholeNumber(fields[0]), WholeNumber(fields[1]), WholeNumber(fields[2])},
          TimeText(fields[3], fields[4]),
          fields[5],
          fields[6],
          WholeNumber(fields[7]),
          TimeText(fields[8], fields[9])};
}

bool OneLetterOf(std::string_view letters, const std::string& text) {
  return text.size() == 1 && letters.find(text) != std::string_view::npos;
}

bool IsDeletion(const std::string& action) {
  return action.size() > 2 && action[0] == 'D' && OneLetterOf(kDeleteChoices, action.substr(1, 1));
}

bool IsAddition(const Edit& edit) {
  return OneLetterOf(kActionLetters.substr(0, kMarkAction), edit.action) &&
         OneLetterOf("NDWM", edit.recurrence);
}

/// Numbers of entries may pass 16 bits, in which the other numbers of a request stand.
int EntryNumber(const std::string& text) {
  const double number = platform::LenientNumber(text);
  if (!(number < std::numeric_limits<int32_t>::max())) {
    throw platform::RuntimeError(platform::errors::kOverflow, "no such entry");
  }
  return static_cast<int>(number);
}

/// A restart counts from the moment of the action: unlike the calendar window, the console does
/// not take the wait before the shutdown off.
void AddEntry(const Edit& edit) {
  const auto [year, month, day] = edit.day;
  std::string event = edit.action, note;
  if (event == "R" || event == "B") {
    event = RestartCode(event[0], MinutesToRestart(edit.time, edit.restartDays, edit.restartTime));
    note = RestartNote(edit.restartDays, edit.restartTime);
  }
  addschdeule(ScheduleDate(year, month, day), edit.time, event,
              RecurrenceCode(edit.recurrence[0], year, month, day), note);
  ReloadRunList();
}

void Apply(const Edit& edit) {
  if (IsDeletion(edit.action)) {
    DeleteByChoice(edit.action[1], EntryNumber(edit.action.substr(2)), edit.day, edit.time);
  } else if (IsAddition(edit)) {
    AddEntry(edit);
  }
}

}  // namespace

void ScheduleMonthPage(int year, int month) {
  const PageDate shown = OrToday({year, month, 0});
  const MonthTable table = LoadMonth(shown.year, shown.month);
  WriteMonthPage("scheduleshow.htm", shown.year, shown.month, "<%ScheduleTable%>", [&](int day) {
    return DayPictures(ActionsOf(table.days[static_cast<size_t>(day) - 1]));
  });
}

void ScheduleMonthRequest(const std::string& value) {
  if (const auto asked = ReadMonthValue(value)) ScheduleMonthPage(asked->year, asked->month);
}

void MakeEventPage1(int year, int month, int day) {
  const PageDate shown = OrToday({year, month, day});
  const MonthTable table = LoadMonth(shown.year, shown.month);
  if (shown.day < 1 || shown.day > static_cast<int>(table.days.size())) {
    throw platform::RuntimeError(platform::errors::kSubscript, "no such day");
  }
  const DayEvents& entries = table.days[static_cast<size_t>(shown.day) - 1];
  WritePage("scheduleevent.htm",
            FillSource("scheduleevent.htm", {{"<%GETEventYear%>", std::to_string(shown.year)},
                                             {"<%GETEventMonth%>", std::to_string(shown.month)},
                                             {"<%GETEventDay%>", std::to_string(shown.day)},
                                             {"<%GETscheduleevent%>", DayRows(entries)}}));
}

void MakeeventPage(const std::string& value) {
  if (const auto asked = ReadDayValue(value)) {
    MakeEventPage1(asked->year, asked->month, asked->day);
  }
}

void AddEventPage(const std::string& value) {
  const auto fields = ReadEditFields(value);
  if (!fields) return;
  const Edit edit = EditFrom(*fields);
  const auto [year, month, day] = edit.day;
  RequireMonth(year, month);
  Apply(edit);
  MakeEventPage1(year, month, day);
}

}  // namespace varek

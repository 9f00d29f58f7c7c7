#include "web/pages/event_pages.h"

#include <algorithm>
#include <array>
#include <bitset>

#include "core/data_center.h"
#include "platform/errors/runtime_error.h"
#include "platform/storage/database.h"
#include "records/files/databases.h"
#include "records/files/event_file.h"
#include "texts/language.h"
#include "web/pages/month_page.h"
#include "web/pages/page_files.h"
#include "web/pages/request_values.h"

namespace varek {

namespace {

using platform::Recordset;
using platform::ValueText;

constexpr char kLineEnd[] = "\r\n";
constexpr size_t kPicturesInLine = 4;

/// The kinds of events of each day of a month.
using MonthEvents = std::array<std::bitset<kEventCount>, 31>;

/// Position of an event's kind in the tables of kinds, from 0.
size_t KindIndex(const platform::Value& type) {
  const double number = platform::ValueNumber(type);
  if (number >= 1 && number <= kEventCount) return static_cast<size_t>(number) - 1;
  throw platform::RuntimeError(platform::errors::kSubscript, "no such event");
}

MonthEvents reloadmon1(int year, int month) {
  MonthEvents events;
  const auto rows = EventsOfMonth(year, month);
  for (; !rows->Eof(); rows->MoveNext()) {
    const size_t day = DayIndex(ValueText(rows->Get(kEventTime)));
    events.at(day).set(KindIndex(rows->Get(kEventType)));
  }
  return events;
}

std::string Picture(size_t kind) {
  return "<img border=0 src=ev" + std::to_string(kind + 1) + ".jpg width=24 height=24 alt=\"" +
         EventText[kind] + "\" >";
}

std::string DayPictures(const std::bitset<kEventCount>& kinds) {
  std::string pictures;
  for (size_t kind = 0; kind < kinds.size(); ++kind) {
    if (kind > 0 && kind % kPicturesInLine == 0) pictures += "<br>";
    if (kinds[kind]) pictures += Picture(kind);
  }
  return pictures;
}

/// Events of the kinds whose bits are set. No event has the kind 999: it keeps the list from being
/// empty.
std::string KindQuery(int mask) {
  std::string query =
      std::string("Select *  From [") + kEventTable + "] Where [" + kEventType + "] In ( 999,";
  for (int bit = 0; bit < kEventCount; ++bit) {
    if ((mask >> bit & 1) != 0) query += std::to_string(bit + 1) + ",";
  }
  return query + ")";
}

std::unique_ptr<Recordset> EventsOfDay(const PageDate& date, int mask) {
  platform::Database database = OpenEventsForReading();
  const std::string query = KindQuery(mask);
  const std::string column = database.OpenRecordset(query)->FieldName(0);
  const std::string day =
      std::to_string(date.year) + "/" + std::to_string(date.month) + "/" + std::to_string(date.day);
  return database.OpenRecordset(query + " AND [" + column + "]> #" + day + " 00:00:01# AND [" +
                                column + "]< #" + day + " 23:59:59#");
}

std::string EventRows(Recordset& events) {
  if (events.RecordCount() == 0) return std::string("<td>NO DATA</td>") + kLineEnd;
  std::string rows;
  for (; !events.Eof(); events.MoveNext()) {
    rows += "<tr><td>" + ShownMoment(ValueText(events.Get(0))) + "</td><td>" +
            EventText[KindIndex(events.Get(kEventType))] + "</td></tr>" + kLineEnd;
  }
  return rows;
}

/// The source page leaves its table open: rows and the end of the page are added behind it.
void MakepceventPage1(Recordset& events, const PageDate& date) {
  const std::string head =
      FillSource("eventdata.htm", {{"<%GETEventYear%>", std::to_string(date.year)},
                                   {"<%GETEventMonth%>", std::to_string(date.month)},
                                   {"<%GETEventDay%>", std::to_string(date.day)}});
  WritePage("eventdata.htm", head + kLineEnd + EventRows(events) + "</table></body></html>");
}

}  // namespace

void EventMonthPage(int year, int month) {
  const PageDate shown = OrToday({year, month, 0});
  RequireMonth(shown.year, shown.month);
  const MonthEvents events = reloadmon1(shown.year, shown.month);
  WriteMonthPage("eventselect.htm", shown.year, shown.month, "<%EventTable%>",
                 [&](int day) { return DayPictures(events[static_cast<size_t>(day) - 1]); });
}

void EventMonthRequest(const std::string& value) {
  if (const auto asked = ReadMonthValue(value)) EventMonthPage(asked->year, asked->month);
}

void EventDayRequest(const std::string& value) {
  const auto asked = ReadDayValue(value);
  if (!asked || !asked->more) return;
  const PageDate date = OrToday({asked->year, asked->month, asked->day});
  const auto events = EventsOfDay(date, WholeNumber(*asked->more));
  MakepceventPage1(*events, date);
}

void getFiveEvent(PageValues& values) {
  values.FiveEventText.fill("");
  values.FiveEventTime.fill("");
  const auto events = OpenEventsForReading().OpenRecordset(kEventTable);
  if (events->RecordCount() == 0) return;
  events->MoveLast();
  for (size_t i = 0; i < values.FiveEventText.size() && !events->Bof(); ++i) {
    values.FiveEventText[i] = EventText[KindIndex(events->Get(1))];
    values.FiveEventTime[i] = ValueText(events->Get(0));
    events->MovePrevious();
  }
}

}  // namespace varek

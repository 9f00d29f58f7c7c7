// The generated pages, byte for byte, and the edits that come from them, on real databases.

#include <filesystem>
#include <fstream>

#include "core/data_center.h"
#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"
#include "records/files/databases.h"
#include "scheduler/schedule_model.h"
#include "support/monitor_fixture.h"
#include "texts/language.h"
#include "web/pages/data_page.h"
#include "web/pages/event_pages.h"
#include "web/pages/month_page.h"
#include "web/pages/page_files.h"
#include "web/pages/schedule_pages.h"

namespace varek {
namespace {

using platform::RuntimeError;

using Rows = std::vector<std::vector<std::string>>;

std::string Image(const std::string& file, const std::string& size, const std::string& text) {
  return "<img border=0 src=" + file + " width=" + size + " height=" + size + " alt=\"" + text +
         "\" >";
}

std::string Cell(const std::string& day, const std::string& images) {
  return "<td onclick = 'postdata(" + day + ");'>" + day + "<br>" + images + "</td>";
}

class PagesTest : public test::MonitorTest {
 protected:
  PagesTest() {
    std::filesystem::create_directory(Folder() + "/httpEnglish");
    SetLanguageIndex(0);
    Loadlanguage(0);
    OpenDatabases();
    const std::string date = "<%GETEventYear%>/<%GETEventMonth%>";
    Source("Mundata.htm", "[<%GETMUNDATA%>]");
    Source("scheduleshow.htm", date + "[<%ScheduleTable%>]");
    Source("eventselect.htm", date + "[<%EventTable%>]");
    Source("scheduleevent.htm", date + "/<%GETEventDay%>[<%GETscheduleevent%>]");
    Source("eventdata.htm", date + "/<%GETEventDay%><table>");
  }

  void Source(const std::string& name, const std::string& text) const {
    std::ofstream(Folder() + "/httpEnglish/src" + name) << text;
  }

  std::string Page(const std::string& name) const {
    return platform::ReadWholeFile(Folder() + "/httpEnglish/" + name);
  }

  static void AddRows(const std::string& table, const Rows& rows) {
    Records.event->BeginTransaction();
    const auto recordset = Records.event->OpenRecordset(table);
    for (const auto& row : rows) {
      recordset->AddNew();
      for (size_t i = 0; i < row.size(); ++i) recordset->Set(static_cast<int>(i), row[i]);
      recordset->Update();
    }
    Records.event->CommitTransaction();
  }

  static std::string Schedule() {
    std::string text;
    const auto rows = Records.event->OpenRecordset(kScheduleTable);
    for (; !rows->Eof(); rows->MoveNext())
      for (int i = 0; i < 6; ++i) text += platform::ValueText(rows->Get(i)) + (i < 5 ? "|" : "\n");
    return text;
  }
};

TEST_F(PagesTest, AnHourOfSamplesIsATable) {
  clock.SetNow({2026, 3, 10, 12, 0, 1});
  DataCenter.HasLoad = kSet;
  DataCenter.HasTemperature = kSet;
  DataCenter.readings.InputVoltage = 220.5F;
  DataCenter.readings.LoadPercent = 34;
  DataCenter.readings.Temperature = 30.25F;
  for (int tick = 0; tick < 2; ++tick, clock.Advance(1000)) AddSample();
  DataRequest("2026%2F3%2F10+12&B1=x");
  EXPECT_EQ(Page("Mundata.htm"),
            "[<tr><td>12:00:02</td><td>220.5</td><td>0</td><td>34</td><td>0</td><td>0</td>"
            "<td>30.25</td></tr>\r\n]\r\n");
  DataCenter.HasLoad = kClear;
  DataCenter.HasTemperature = kClear;
  for (const char* value : {"2026%2F03%2F10+12", "", "2026%2F3", "2026%2F3%2F10"})
    DataRequest(value);
  EXPECT_EQ(Page("Mundata.htm"),
            "[<tr><td>12:00:02</td><td>220.5</td><td>0</td><td>0</td><td>0</td></tr>\r\n]\r\n");
  for (const std::string value : {"2026%2F3%2F10+23", "2026%2F3%2F9+12"}) {
    Source("Mundata.htm", value + "<%GETMUNDATA%>");
    DataRequest(value);
    EXPECT_EQ(Page("Mundata.htm"), value + "<td>NO DATA</td>\r\n\r\n");
  }
  Source("Mundata.htm", "no marker");
  DataRequest("2026%2F3%2F10+12");
  EXPECT_EQ(Page("Mundata.htm"), "\r\n");
}

TEST_F(PagesTest, AScheduleMonthShowsItsActions) {
  // August 2026 begins on a Saturday and takes all six weeks.
  AddRows(kScheduleTable, {{"1", "2026/8/1", "12:00", "M", "Null", ""},
                           {"2", "2026/8/1", "12:00", "T", "Null", ""},
                           {"3", "2026/8/31", "12:00", "R0030", "W1", "012:30"},
                           {"4", "2026/8/30", "12:00", "S", "Day", ""},
                           {"5", "2026/8/31", "12:00", "D4", "Null", ""}});
  ScheduleMonthRequest("2026%2F8&B1=x");
  const std::string page = Page("scheduleshow.htm");
  const std::string empty = "<td></td><td></td><td></td><td></td><td></td>";
  EXPECT_TRUE(page.starts_with("2026/8[\r\n<tr>" + empty + "<td></td>" +
                               Cell("1", Image("QTest.jpg", "32", ActionName[0]) + "<br><br>" +
                                             Image("SysDown.jpg", "32", ActionName[7])) +
                               "</tr>\r\n<tr>" + Cell("2", "<br><br>")))
      << page;
  EXPECT_TRUE(page.ends_with(
      "</tr>\r\n<tr>" + Cell("30", "<br>" + Image("shutdown.jpg", "32", ActionName[3]) + "<br>") +
      Cell("31", "<br>" + Image("shutdownandstart.jpg", "32", ActionName[4]) + "<br>") + empty +
      "</tr>\r\n]\r\n"))
      << page;

  for (const char* present : {"0%2F0", "2026"}) {
    ScheduleMonthRequest(present);
    EXPECT_TRUE(Page("scheduleshow.htm").starts_with("2026/3[")) << present;
  }
  for (const char* value : {"2026%2F13", "2026%2F0", "10000%2F1"})
    EXPECT_THROW(ScheduleMonthRequest(value), RuntimeError) << value;

  // Today is known by two digits of the year.
  const std::string mark = "<td bgcolor=#99CCFF onclick = 'postdata(10);'>10<br>";
  for (const int year : {26, 2026}) {
    WriteMonthPage("scheduleshow.htm", year, 3, "<%ScheduleTable%>", [](int) { return ""; });
    EXPECT_EQ(Page("scheduleshow.htm").find(mark) != std::string::npos, year == 26);
  }
}

TEST_F(PagesTest, ADayListsItsEntriesWithButtons) {
  AddRows(kScheduleTable, {{"7", "2026/3/10", "08:30", "R0090", "Null", "010:00"},
                           {"8", "2026/3/3", "09:00", "T", "W2", ""},
                           {"9", "2026/3/3", "09:00", "M", "Day", ""},
                           {"10", "2026/3/10", "09:00", "D9", "Null", ""}});
  MakeeventPage("2026%2F3%2F10&B1=x");
  const auto button = [](const std::string& text, const std::string& call) {
    return "<input type='button' value='" + text + "' onclick = 'delEvent(\"" + call + "\");' >";
  };
  const auto once = [&](const std::string& call) { return button("Delete this date only", call); };
  EXPECT_EQ(
      Page("scheduleevent.htm"),
      "2026/3/10[<tr><td>7</td><td>08:30</td><td>Shut down UPS, restart</td>"
      "<td>10:00 same day</td><td>Once</td><td>" +
          once("DA7") +
          "</td></tr>"
          "<tr><td>8</td><td>09:00</td><td>Short battery test</td><td></td><td>Tuesday</td><td>" +
          button("Delete whole entry", "DA8") + once("DN8") +
          button("Delete weekly from here", "DW8") + button("Delete monthly from here", "DM8") +
          "</td></tr><tr><td>10</td><td>09:00</td>"
          "<td>9 cancelled on this date</td><td></td><td>Once</td><td>" +
          once("DA10") + "</td></tr>]\r\n");
  MakeeventPage("2026%2F2%2F31");
  EXPECT_EQ(Page("scheduleevent.htm"), "2026/2/31[]\r\n");
  EXPECT_THROW(MakeEventPage1(2026, 3, 32), RuntimeError);
}

TEST_F(PagesTest, AnEditOfEachKindBecomesARow) {
  DataCenter.settings.UPSShutdownBuffer = 5;  // does not count here
  const std::pair<const char*, const char*> edits[] = {{"T+N+0+0+0", "T|Null|"},
                                                       {"L+D+0+0+0", "L|Day|"},
                                                       {"C+W+0+0+0", "C|W2|"},
                                                       {"S+M+0+0+0", "S|M10|"},
                                                       {"A+N+3+4+5", "A|Null|"},
                                                       {"M+N+0+0+0", "M|Null|"},
                                                       {"R+D+0+9+0", "R0055|Day|009:00"},
                                                       {"B+W+2+7+5", "B2820|W2|207:05"},
                                                       {"DN12+D+0+0+0", "D12|Null|"},
                                                       {"DW12+D+0+0+0", "D12|W2|"},
                                                       {"DM12+D+0+0+0", "D12|M10|"}};
  std::string expected;
  int number = 0;
  for (const auto& [edit, row] : edits) {
    AddEventPage(std::string("2026+3+10+8+5+") + edit + "&B1=x");
    EXPECT_EQ(RunEntries.count, ++number) << edit;
    expected += std::to_string(number) + "|2026-03-10|08:05|" + row + "\n";
  }
  EXPECT_EQ(Schedule(), expected);
  EXPECT_TRUE(Page("scheduleevent.htm").starts_with("2026/3/10[<tr><td>1</td>"));
  AddEventPage("");
  for (const std::string edit :
       {"T+N+0+0+0", "T+N+0+0&B1=x", "X+N+0+0+0&", "T+X+0+0+0&", "DX1+N+0+0+0&", "D<b>+N+0+0+0&"})
    AddEventPage("2026+3+10+8+5+" + edit);
  EXPECT_THROW(AddEventPage("2026+2+30+8+5+T+N+0+0+0&"), RuntimeError);
  EXPECT_EQ(Schedule(), expected);
  AddEventPage("2026+3+10+8+5+DA1+D+0+0+0&");
  EXPECT_EQ(Schedule(), expected.substr(expected.find('\n') + 1));
  EXPECT_EQ(RunEntries.count, number - 1);
  AddRows(kScheduleTable, {{"40000", "2026/3/10", "12:00", "T", "Null", ""}});
  AddEventPage("2026+3+10+8+5+DA40000+N+0+0+0&");
  EXPECT_EQ(RunEntries.count, number - 1);
}

TEST_F(PagesTest, ADayTakes2001Entries) {
  const std::vector<std::string> row{"1", "2026/3/5", "09:00", "T", "Null", ""};
  AddRows(kScheduleTable, Rows(2001, row));
  MakeEventPage1(2026, 3, 5);
  EXPECT_EQ(DataCenter.DebugLines[0], "");
  const std::string full = Page("scheduleevent.htm");
  AddRows(kScheduleTable, {row});
  MakeEventPage1(2026, 3, 5);
  EXPECT_TRUE(DataCenter.DebugLines[0].ends_with("  DATA EVENT ERROR"));
  EXPECT_EQ(Page("scheduleevent.htm"), full);
}

TEST_F(PagesTest, AnEventMonthShowsTheKindsOfEachDay) {
  Rows rows(2000, {"2026/12/31 23:59:59", "12"});
  for (const char* kind : {"1", "5"}) rows.push_back({"2026/12/31 00:00:00", kind});
  rows.push_back({"2027/1/1 00:00:00", "5"});
  rows.push_back({"2026/11/30 23:59:59", "6"});
  AddRows(kEventTable, rows);
  EventMonthRequest("2026%2F12");
  const std::string page = Page("eventselect.htm");
  const auto image = [](size_t kind) {
    return Image("ev" + std::to_string(kind) + ".jpg", "24", EventText[kind - 1]);
  };
  for (const std::string& cell : {Cell("1", "<br><br>"), Cell("30", "<br><br>"),
                                  Cell("31", image(1) + "<br>" + image(5) + "<br>" + image(12))})
    EXPECT_NE(page.find(cell), std::string::npos) << cell;
  EventMonthPage(0, 0);
  EXPECT_TRUE(Page("eventselect.htm").starts_with("2026/3[\r\n<tr><td onclick = 'postdata(1);'>"));
}

TEST_F(PagesTest, ADayListsTheChosenKinds) {
  AddRows(kEventTable, {{"2026/3/10 00:00:01", "1"},
                        {"2026/3/10 00:00:02", "1"},
                        {"2026/3/10 09:00:00", "12"},
                        {"2026/3/10 23:59:59", "1"}});
  const std::string head = "2026/3/10<table>\r\n", tail = "</table></body></html>\r\n";
  const std::string first = "<tr><td>2026/03/10 00:00:02</td><td>UPS monitor started</td></tr>\r\n";
  const std::string last =
      "<tr><td>2026/03/10 09:00:00</td><td>UPS battery test running</td></tr>\r\n";
  const std::pair<const char*, std::string> masks[] = {
      {"1", first}, {"2048", last}, {"2049&B1=x", first + last}, {"0", "<td>NO DATA</td>\r\n"}};
  for (const auto& [mask, rows] : masks) {
    EventDayRequest(std::string("2026%2F3%2F10+") + mask);
    EXPECT_EQ(Page("eventdata.htm"), head + rows + tail) << mask;
  }
  EventDayRequest("0%2F0%2F0+1");
  EXPECT_EQ(Page("eventdata.htm"), head + first + tail);
}

TEST_F(PagesTest, TheFiveNewestEventsComeNewestFirst) {
  AddRows(kEventTable, {{"2026/3/10 01:00:00", "1"}, {"2026/3/10 02:00:00", "2"}});
  PageValues values;
  values.FiveEventText[4] = "old";
  getFiveEvent(values);
  EXPECT_EQ(values.FiveEventText[0], EventText[1]);
  EXPECT_EQ(values.FiveEventTime[1], "2026-03-10 01:00:00");
  EXPECT_EQ(values.FiveEventText[2] + values.FiveEventText[4], "");
  for (const std::string hour : {"3", "4", "5", "6"})
    AddRows(kEventTable, {{"2026/3/10 " + hour + ":00:00", hour}});
  getFiveEvent(values);
  EXPECT_EQ(values.FiveEventText[0], EventText[5]);
  EXPECT_EQ(values.FiveEventText[4], EventText[1]);
  AddRows(kEventTable, {{"2026/3/10 07:00:00", "13"}});
  EXPECT_THROW(getFiveEvent(values), RuntimeError);
  EXPECT_THROW(EventMonthPage(2026, 3), RuntimeError);
}

}  // namespace
}  // namespace varek

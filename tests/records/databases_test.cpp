// Samples and the purge, with a replaced clock and real files.

#include "records/files/databases.h"

#include <filesystem>

#include "core/data_center.h"
#include "records/files/recording.h"
#include "support/monitor_fixture.h"

namespace varek {
namespace {

using platform::DateTime;

class DatabasesTest : public test::MonitorTest {
 protected:
  std::string File(const std::string& name) const { return Folder() + "/database/" + name; }

  std::vector<std::string> Column(const std::string& file, const std::string& table,
                                  int field) const {
    platform::Database database(File(file));
    const auto rows = database.OpenRecordset(table);
    std::vector<std::string> values;
    for (; !rows->Eof(); rows->MoveNext()) values.push_back(platform::ValueText(rows->Get(field)));
    return values;
  }

  void AddTable(const std::string& name) {
    platform::Database(File("data.mdb")).AppendTable({name, {{"date", platform::FieldType::Date}}});
  }

  /// The ticks of the controller, with one sample in each; long stretches need fewer.
  void Run(int seconds, int step = 1) {
    for (int second = 0; second < seconds; second += step) {
      clock.Advance(step * 1000);
      if (DataCenter.DatabaseReady) AddSample();
      KeepRecording();
    }
  }

  size_t Samples(const std::string& day) const { return Column("data.mdb", day, 0).size(); }

  void AddRow(const std::string& table, const std::string& moment) {
    platform::Database database(File("Event.mdb"));
    const auto rows = database.OpenRecordset(table);
    rows->AddNew();
    rows->Set(0, moment);
    rows->Update();
  }
};

TEST_F(DatabasesTest, ASampleHasItsSevenColumnsOrIsLeftOut) {
  ASSERT_TRUE(OpenDatabases());
  DataCenter.readings.InputVoltage = 220.5F;
  DataCenter.readings.OutputVoltage = 27.1F;
  DataCenter.readings.LoadPercent = 101;
  DataCenter.readings.Frequency = 49.9F;
  DataCenter.readings.BatteryVoltage = 2.21F;
  DataCenter.readings.Temperature = 30.25F;  // stays Celsius whatever is shown
  AddSample();
  DataCenter.readings.LoadPercent = 300;  // does not fit the column, and costs this sample only
  AddSample();
  platform::Database database(File("data.mdb"));
  const auto rows = database.OpenRecordset("20260310");
  const std::pair<const char*, const char*> expected[] = {
      {"date", "12:00:00"},     {"Input voltage", "220.5"}, {"Output voltage", "27.1"},
      {"Load", "101"},          {"Frequency", "49.9"},      {"Battery capacious", "90"},
      {"Temperature", "30.25"},
  };
  ASSERT_EQ(rows->FieldCount(), 7);
  ASSERT_EQ(rows->RecordCount(), 1);
  for (int i = 0; i < 7; ++i) {
    EXPECT_EQ(rows->FieldName(i), expected[i].first);
    EXPECT_EQ(platform::ValueText(rows->Get(i)), expected[i].second);
  }
}

TEST_F(DatabasesTest, AClockSetBackAppendsToTheOldTableAndPurgesNothing) {
  ASSERT_TRUE(OpenDatabases());
  AddSample();
  clock.SetNow({2026, 3, 11, 8, 0, 0});
  AddSample();
  AddTable("20200101");
  clock.SetNow({2026, 3, 10, 7, 0, 0});
  AddSample();
  EXPECT_EQ(Column("data.mdb", "20260310", 0), (std::vector<std::string>{"12:00:00", "07:00:00"}));
  EXPECT_TRUE(TableExists("20200101"));
  EXPECT_TRUE(TableExists("20260311"));
}

TEST_F(DatabasesTest, PurgeKeepsTheCutOffDayAcrossMonthsAndYears) {
  const struct {
    DateTime today;
    const char *kept, *dropped;
  } cases[] = {
      {{2028, 3, 10, 1, 0, 0}, "20280225", "20280224"},  // leap year
      {{2026, 3, 10, 1, 0, 0}, "20260224", "20260223"},
      {{2100, 3, 1, 1, 0, 0}, "21000215", "21000214"},  // no leap year
      {{2026, 1, 3, 1, 0, 0}, "20251220", "20251219"},
      {{2026, 5, 14, 1, 0, 0}, "20260430", "20260429"},
      {{2026, 5, 15, 1, 0, 0}, "20260501", "20260430"},
  };
  for (const auto& c : cases) {
    clock.SetNow(c.today);
    test::InstallDatabases(Folder());
    AddTable(c.kept);
    AddTable(c.dropped);
    ASSERT_TRUE(OpenDatabases());
    EXPECT_TRUE(TableExists(c.kept)) << c.kept;
    EXPECT_FALSE(TableExists(c.dropped)) << c.dropped;
    CloseDatabases();
  }
}

TEST_F(DatabasesTest, PurgeGoesByLeadingDigitsAndLeavesEverythingElse) {
  for (const char* name : {"20260101backup", "a20200101", "1x", "20991231", "0"}) AddTable(name);
  for (const char* moment : {"2026/2/23 23:59:59", "2026/2/24 00:00:00", "2026/3/9 1:2:3"}) {
    AddRow("allevent", moment);
    AddRow("HTTPLOG", moment);
  }
  ASSERT_TRUE(OpenDatabases());
  EXPECT_EQ(platform::Database(File("data.mdb")).TableNames(),
            (std::vector<std::string>{"a20200101", "20991231", "0", "20260310"}));
  const std::vector<std::string> kept{"2026-02-24 00:00:00", "2026-03-09 01:02:03"};
  EXPECT_EQ(Column("Event.mdb", "allevent", 0), kept);
  EXPECT_EQ(Column("Event.mdb", "HTTPLOG", 0), kept);
}

TEST_F(DatabasesTest, AJumpOfTheClockPurgesOnlyWhenItHolds) {
  const struct {
    DateTime jump;
    int seconds;  ///< for which it holds
    bool purged;
  } cases[] = {
      {{2026, 4, 9, 12, 0, 0}, 590, false},  {{2026, 4, 9, 12, 0, 0}, 610, true},
      {{2026, 4, 9, 23, 55, 0}, 590, false},  // with a midnight inside
      {{2026, 4, 9, 23, 55, 0}, 610, true},  {{2026, 3, 11, 0, 30, 0}, 610, true},
  };
  for (const auto& c : cases) {
    clock.SetNow({2026, 3, 10, 12, 0, 0});
    test::InstallDatabases(Folder());
    ASSERT_TRUE(OpenDatabases());
    AddTable("20200101");
    AddSample();
    clock.SetNow(c.jump);
    Run(c.seconds, 10);
    clock.SetNow({2026, 3, 10, 12, 10, 0});
    Run(700, 10);
    EXPECT_EQ(TableExists("20200101"), !c.purged) << c.jump.day << " " << c.seconds;
    EXPECT_TRUE(TableExists("20260310") || c.jump.month == 4);
    CloseDatabases();
  }
}

TEST_F(DatabasesTest, AMidnightPurgesAtOnceAndCostsNoSample) {
  clock.SetNow({2026, 3, 10, 23, 59, 50});
  ASSERT_TRUE(OpenDatabases());
  AddTable("20200101");
  std::filesystem::permissions(File("Event.mdb"), std::filesystem::perms::owner_read);
  test::Journal journal;
  Run(20);
  EXPECT_FALSE(TableExists("20200101"));
  EXPECT_EQ(Samples("20260310"), 9U);
  EXPECT_EQ(Samples("20260311"), 11U);
  EXPECT_NE(journal.Take().find("Event.mdb: read-only\n"), std::string::npos);
}

TEST_F(DatabasesTest, ADeletedFileIsNoticedAndItsSuccessorTaken) {
  const std::string spare = Folder() + "/spare";
  std::filesystem::copy(File("data.mdb"), spare);
  ASSERT_TRUE(OpenDatabases());
  Run(2);
  test::Journal journal;
  std::filesystem::remove(File("data.mdb"));
  Run(61);
  EXPECT_FALSE(DataCenter.DatabaseReady);
  EXPECT_EQ(DataCenter.DebugLines[0], "2026/03/10 12:01:00  Samples are not recorded: " +
                                          File("data.mdb") + ": no such database");
  Run(300);
  std::filesystem::copy(spare, File("data.mdb"));
  Run(61);
  EXPECT_TRUE(DataCenter.DatabaseReady);
  EXPECT_GE(Samples("20260310"), 1U);
  EXPECT_EQ(DataCenter.DebugLines[0], "2026/03/10 12:07:00  Samples are recorded again");
  EXPECT_EQ(journal.Take(), "recording of samples: could not open data.mdb: " + File("data.mdb") +
                                ": no such database\nrecording of samples: works again\n");

  CloseDatabases();
  std::filesystem::remove(File("data.mdb"));
  EXPECT_FALSE(OpenDatabases());  // a start without it tries again too
  Run(100);
  test::InstallDatabases(Folder());
  Run(61);
  EXPECT_TRUE(DataCenter.DatabaseReady && Records.allevent);
}

TEST_F(DatabasesTest, AMissingTableLeavesStorageOffUnlessItIsTheWebLog) {
  for (const char* table : {"allevent", "schedule"}) {
    test::InstallDatabases(Folder());
    platform::Database(File("Event.mdb")).DeleteTable(table);
    EXPECT_FALSE(OpenDatabases()) << table;
    EXPECT_FALSE(DataCenter.DatabaseReady || TableExists("20260310"));
  }
  test::InstallDatabases(Folder());
  AddRow("allevent", "2020/1/1 1:2:3");
  platform::Database(File("Event.mdb")).DeleteTable("HTTPLOG");
  EXPECT_TRUE(OpenDatabases());
  EXPECT_TRUE(Column("Event.mdb", "allevent", 0).empty());
}

}  // namespace
}  // namespace varek

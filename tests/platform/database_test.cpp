// Databases on real files: what a recordset shows while others change the file, what each type of
// field keeps, which error each misuse and each broken file gives, and what outlives a crash.

#include "platform/database.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>

#include "error_of.h"
#include "platform/paths.h"
#include "support/monitor_fixture.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

class DatabaseTest : public testing::Test {
 protected:
  DatabaseTest() {
    std::ofstream{path};
    database.emplace(path);
    database->AppendTable({"log",
                           {{"when", FieldType::Date},
                            {"type", FieldType::Long},
                            {"Input voltage", FieldType::Single},
                            {"Load", FieldType::Byte},
                            {"note", FieldType::Text}}});
  }

  static void AddRow(Recordset& rows, int64_t type, const std::string& when = "2026/3/10") {
    rows.AddNew();
    rows.Set("when", when);
    rows.Set("type", type);
    rows.Update();
  }
  static void Add(Database& to, const std::vector<int64_t>& types) {
    for (int64_t type : types) AddRow(*to.OpenRecordset("log"), type);
  }
  static void Change(Recordset& row, const std::string& field, const Value& value) {
    row.Edit();
    row.Set(field, value);
    row.Update();
  }
  /// The types of the rows from the first to the last, "1 2 3".
  static std::string Types(Recordset& rows) {
    std::string types;
    if (rows.RecordCount() > 0) rows.MoveFirst();
    for (; !rows.Eof(); rows.MoveNext()) types += " " + ValueText(rows.Get("TYPE"));
    return types.substr(types.empty() ? 0 : 1);
  }
  /// The same as a connection of its own sees it.
  std::string Stored(const std::string& condition = "1=1") {
    return Types(*Database(path).OpenRecordset("Select * From [log] Where " + condition));
  }

  varek::test::TemporaryFolder folder;
  std::string path = folder.Path() + "/Event.mdb";
  std::optional<Database> database;
};

TEST_F(DatabaseTest, RowsAreFixedAtOpeningAndTheirValuesAreRead) {
  Add(*database, {1, 2, 3});
  Database other(path);
  const auto rows = database->OpenRecordset("log");
  const auto others = other.OpenRecordset("log");
  EXPECT_EQ(ValueText(rows->Get("note")), "");

  Add(other, {9});
  Change(*others, "note", std::string("kept"));
  others->FindFirst("[type] = 3");
  Change(*others, "type", int64_t{30});
  others->FindFirst("[type] = 2");
  others->Delete();
  Add(*database, {8});  // A row that has been read holds nobody's writing back.
  // An edit begins from the row as it now stands, not as it was read.
  Change(*rows, "type", int64_t{10});
  EXPECT_EQ(Stored("[note] = 'kept'"), "10");

  EXPECT_EQ(rows->RecordCount(), 3);
  rows->MoveNext();
  EXPECT_EQ(ErrorOf([&] { rows->Get(1); }), errors::kRecordDeleted);
  EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), errors::kRecordDeleted);
  rows->MoveNext();
  AddRow(*rows, 4);
  EXPECT_EQ(ValueNumber(rows->Get(1)), 30);  // Adding leaves the current row.
  rows->MoveNext();
  EXPECT_EQ(ValueNumber(rows->Get(1)), 4);
  EXPECT_EQ(Stored(), "10 30 9 8 4");
  rows->Edit();
  other.OpenRecordset("Select * From [log] Where [type] = 4")->Delete();
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::kRecordDeleted);
  AddRow(*rows, 5);  // It takes the key of the row that has gone, and appears once.
  rows->MoveLast();
  rows->MovePrevious();
  EXPECT_EQ(ValueNumber(rows->Get(1)), 30);
  EXPECT_EQ(rows->RecordCount(), 4);
}

TEST_F(DatabaseTest, DeletesInEveryWayThatTheSystemWalks) {
  Add(*database, {1, 2, 3, 2});
  auto rows = database->OpenRecordset("Select * From [log] Where [type] < 3");
  while (!rows->Eof() && rows->RecordCount() > 0) {
    rows->MoveFirst();
    rows->Delete();
  }
  EXPECT_EQ(Stored(), "3");
  EXPECT_TRUE(rows->Eof() && rows->Bof());
  EXPECT_EQ(ErrorOf([&] { rows->MoveFirst(); }), errors::kNoCurrentRecord);

  Add(*database, {1, 2, 3, 2});
  rows = database->OpenRecordset("log");
  for (; !rows->Eof(); rows->MoveNext()) {
    if (ValueNumber(rows->Get("type")) == 2) rows->Delete();
  }
  EXPECT_EQ(Stored(), "3 1 3");

  for (rows->FindFirst("[type] = 3"); !rows->NoMatch(); rows->FindNext("[type] = 3")) {
    rows->Delete();
    EXPECT_EQ(ErrorOf([&] { rows->Get(0); }), errors::kNoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), errors::kNoCurrentRecord);
  }
  EXPECT_EQ(Stored() + Types(*rows), "11");
}

TEST_F(DatabaseTest, MovesToBothEndsAndFinds) {
  Add(*database, {5, 6, 7, 6});
  const auto rows = database->OpenRecordset("log");
  rows->MovePrevious();
  EXPECT_TRUE(rows->Bof());
  EXPECT_EQ(ErrorOf([&] { rows->MovePrevious(); }), errors::kNoCurrentRecord);
  rows->MoveNext();
  EXPECT_EQ(rows->AbsolutePosition(), 0);
  rows->MoveLast();
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(rows->AbsolutePosition(), -1);
  EXPECT_EQ(ErrorOf([&] { rows->MoveNext(); }), errors::kNoCurrentRecord);
  rows->MovePrevious();
  EXPECT_EQ(rows->AbsolutePosition(), 3);

  rows->FindFirst("[type] = 6 And [when] = #2026/3/10#");
  EXPECT_EQ(rows->AbsolutePosition(), 1);
  rows->FindNext("[type] = 6");
  EXPECT_EQ(rows->AbsolutePosition(), 3);
  rows->FindNext("[type] = 6");
  EXPECT_TRUE(rows->NoMatch());
  EXPECT_EQ(rows->AbsolutePosition(), 3);
}

TEST_F(DatabaseTest, QueriesCompareMomentsAndChainFromTheLeft) {
  const auto rows = database->OpenRecordset("log");
  AddRow(*rows, 1, "2026/2/24 23:59:59");
  AddRow(*rows, 2, "2026/2/25");
  AddRow(*rows, 3, "2026/2/25 0:0:1");
  AddRow(*rows, 4, "2026/10/1 08:00:00");
  AddRow(*rows, 10, "2026/10/1 9:00:00");
  const std::pair<const char*, const char*> cases[] = {
      {"[when] < #2026/2/25#", "1"},
      {"[when] >= #2026/02/25# AND [when] < #2026/3/1#", "2 3"},
      {"[when] > #2026/10/01 8:00:00# And [when] < #2026/10/01 9:00:00#", ""},
      {"[when] >= #2026/9/30# And [type] > 9", "10"},
      {"[type] In ( 999,4,1,)", "1 4"},
      {"[type] = 1 And [type] = 2 Or [type] > 3.5", "4 10"},
  };
  for (const auto& [condition, types] : cases) EXPECT_EQ(Stored(condition), types) << condition;
}

TEST_F(DatabaseTest, EachTypeOfFieldKeepsWhatFitsAndRefusesTheRest) {
  const std::string odd("it's; [x] \xE6\x99\x82\0#", 15);
  const struct {
    const char* field;
    Value given;
    std::string kept;
  } cases[] = {
      {"load", 0.0, "0"},
      {"LOAD", int64_t{255}, "255"},
      {"Load", 254.5, "254"},
      {"Load", std::string(" 35%"), "35"},
      {"type", 2147483647.0, "2147483647"},
      {"Input voltage", 220.5, "220.5"},
      {"input VOLTAGE", double{27.1F}, "27.1"},
      {"Input voltage", std::string("000.1"), "0.1"},
      {"when", std::string("2026/3/9"), "2026-03-09"},
      {"when", std::string("7:5"), "07:05:00"},
      {"when", std::string("2026/3/9 23:5:0"), "2026-03-09 23:05:00"},
      {"note", odd, odd},
      {"note", Value(), ""},
  };
  const auto rows = database->OpenRecordset("log");
  for (const auto& c : cases) {
    rows->AddNew();
    rows->Set(c.field, c.given);
    rows->Update();
    rows->MoveLast();
    EXPECT_EQ(ValueText(rows->Get(c.field)), c.kept) << c.field;
  }
  // A limit that a person types meets the number that the person sees.
  const char* typed = "Select * From [log] Where [Input voltage] = 027.1";
  EXPECT_EQ(database->OpenRecordset(typed)->RecordCount(), 1);
  EXPECT_EQ(rows->FieldCount(), 5);
  EXPECT_EQ(rows->FieldName(2), "Input voltage");

  const std::pair<const char*, Value> refused[] = {
      {"Load", 255.5},        {"Load", -0.6},          {"type", 2147483648.0},
      {"type", std::nan("")}, {"when", std::string()}, {"when", std::string("2026/2/30")},
  };
  rows->AddNew();
  for (const auto& [field, value] : refused) {
    EXPECT_EQ(ErrorOf([&] { rows->Set(field, value); }), errors::kDataConversion) << field;
  }
}

TEST_F(DatabaseTest, EveryMisuseHasItsNumber) {
  Add(*database, {1});
  const auto rows = database->OpenRecordset("log");
  const auto open = [&](const char* query) { database->OpenRecordset(query); };
  const std::pair<int, std::function<void()>> cases[] = {
      {errors::kItemNotFound, [&] { rows->Get("nothing"); }},
      {errors::kItemNotFound, [&] { rows->Get(5); }},
      {errors::kItemNotFound, [&] { rows->FieldName(-1); }},
      {errors::kNoEdit, [&] { rows->Set(0, Value()); }},
      {errors::kNoEdit, [&] { rows->Edit(), rows->Update(), rows->Update(); }},
      {errors::kNoEdit, [&] { rows->AddNew(), rows->MoveFirst(), rows->Update(); }},
      {errors::kTableNotFound, [&] { open("nothing"); }},
      {errors::kTableNotFound, [&] { open("Select * From [nothing]"); }},
      {errors::kTableNotFound, [&] { database->DeleteTable("nothing"); }},
      {errors::kQuerySyntax, [&] { open("Select * From log; x"); }},
      {errors::kDatabaseFailure, [&] { open("Select * From [log] Where [type] = = 1"); }},
      // A misspelt column must not pass for a text that is always, or never, true.
      {errors::kDatabaseFailure, [&] { open("Select * From [log] Where [tpye] > 0"); }},
      {errors::kDatabaseFailure, [&] { rows->FindFirst("[evnet] <> 'D1'"); }},
      {errors::kDatabaseFailure,
       [&] {
         database->AppendTable(TableDef{"log", {}});
       }},
      {errors::kDatabaseFailure, [&] { database->CommitTransaction(); }},
  };
  for (const auto& c : cases) EXPECT_EQ(ErrorOf(c.second), c.first) << "case " << &c - cases;
  EXPECT_EQ(Stored(), "1");
}

TEST_F(DatabaseTest, ATransactionIsWholeOrNothing) {
  Add(*database, {1});
  database->BeginTransaction();
  Add(*database, {2, 3});
  EXPECT_EQ(Stored(), "1");
  database->Rollback();
  {
    Database leaving(path);
    leaving.BeginTransaction();
    Add(leaving, {4});
  }
  EXPECT_EQ(Stored(), "1");
  database->BeginTransaction();
  Add(*database, {5, 6});
  database->CommitTransaction();
  EXPECT_EQ(Stored(), "1 5 6");
}

/// A file that another program holds for a moment costs the row of that moment and no other.
TEST_F(DatabaseTest, ABusyFileCostsOneRow) {
  Database other(path);
  const auto rows = database->OpenRecordset("log");
  AddRow(*rows, 1);
  other.BeginTransaction();
  EXPECT_EQ(ErrorOf([&] { AddRow(*rows, 2); }), errors::kDatabaseFailure);
  other.Rollback();
  AddRow(*rows, 3);
  EXPECT_EQ(Types(*rows), "1 3");
  EXPECT_EQ(Stored(), "1 3");
}

TEST_F(DatabaseTest, BrokenFilesGiveTheirErrorAndStayAsTheyAre) {
  database->BeginTransaction();
  Add(*database, std::vector<int64_t>(300, 7));
  database->CommitTransaction();
  database.reset();
  const std::string good = ReadWholeFile(path);
  ASSERT_GT(good.size(), 8192U);
  std::string file = folder.Path() + "/broken";
  const auto openAll = [&] { Types(*Database(file).OpenRecordset("log")); };
  EXPECT_EQ(ErrorOf(openAll), errors::kDatabaseNotFound);
  EXPECT_FALSE(fs::exists(file));
  const std::pair<std::string, int> contents[] = {
      {"", errors::kTableNotFound},
      {std::string(8192, 'x'), errors::kNotADatabase},
      {good.substr(0, 50), errors::kDatabaseFailure},
      {good.substr(0, 4096), errors::kDatabaseFailure},
      {std::string(good).replace(4096, 2048, 2048, '\xA5'), errors::kDatabaseFailure},
  };
  for (const auto& [bytes, error] : contents) {
    std::ofstream(file += "x", std::ios::binary) << bytes;
    EXPECT_EQ(ErrorOf(openAll), error) << bytes.size();
  }
  EXPECT_EQ(ErrorOf([&] { Database give(folder.Path()); }), errors::kDatabaseNotFound);
  fs::permissions(path, fs::perms::owner_read);
  EXPECT_EQ(ErrorOf([&] { Database give(path); }), errors::kDatabaseReadOnly);
  EXPECT_TRUE(ReadWholeFile(path) == good);
}

/// The writer dies without a word between two rows; every row that it reported must be there.
TEST_F(DatabaseTest, CommittedRowsOutliveAKilledWriter) {
  database.reset();
  std::signal(SIGCHLD, SIG_DFL);
  int reports[2];
  ASSERT_EQ(pipe(reports), 0);
  const pid_t writer = fork();
  if (writer == 0) {
    Database own(path);
    const auto rows = own.OpenRecordset("log");
    for (int64_t type = 1; type == 1 || write(reports[1], "x", 1) == 1; ++type) AddRow(*rows, type);
    _exit(1);
  }
  close(reports[1]);
  int64_t reported = 0;
  char byte;
  for (; reported < 20; ++reported) ASSERT_EQ(read(reports[0], &byte, 1), 1);
  kill(writer, SIGKILL);
  waitpid(writer, nullptr, 0);
  while (read(reports[0], &byte, 1) == 1) ++reported;
  close(reports[0]);

  const auto rows = Database(path).OpenRecordset("log");
  EXPECT_GE(rows->RecordCount(), reported);
  EXPECT_LE(rows->RecordCount(), reported + 1);
  for (int64_t type = 1; !rows->Eof(); rows->MoveNext()) {
    EXPECT_EQ(ValueNumber(rows->Get("type")), static_cast<double>(type++));
  }
}

}  // namespace
}  // namespace platform

// Databases on real files, which other connections change meanwhile and whose writers may die.

#include "platform/storage/database.h"

#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>

#include "error_of.h"
#include "support/monitor_fixture.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

class DatabaseTest : public testing::Test {
 protected:
  DatabaseTest() {
    std::ofstream{path};
    database.emplace(path);
    using enum FieldType;
    const std::vector<FieldDef> fields{
        {"when", Date}, {"type", Long}, {"Input voltage", Single}, {"Load", Byte}, {"note", Text}};
    database->AppendTable({"log", fields});
  }

  static void Add(Recordset& rows, int64_t type) {
    rows.AddNew();
    rows.Set("when", "2026/3/10"s);
    rows.Set("type", type);
    rows.Update();
  }
  std::unique_ptr<Recordset> Rows(const std::string& query = "log") {
    return database->OpenRecordset(query);
  }
  std::unique_ptr<Recordset> RowsWith(const std::vector<int64_t>& types) {
    for (int64_t type : types) Add(*Rows(), type);
    return Rows();
  }
  static void Change(Recordset& row, const std::string& field, const Value& value) {
    row.Edit();
    row.Set(field, value);
    row.Update();
  }
  /// The types of the rows as a connection of its own sees them, "1 2 3".
  std::string Stored() {
    const auto rows = Database(path).OpenRecordset("log");
    std::string types;
    for (; !rows->Eof(); rows->MoveNext()) types += " " + ValueText(rows->Get("TYPE"));
    return types.substr(types.empty() ? 0 : 1);
  }

  varek::test::TemporaryFolder folder;
  std::string path = folder.Path() + "/Event.mdb";
  std::optional<Database> database;
};

TEST_F(DatabaseTest, RowsAreFixedAtOpeningAndTheirValuesAreRead) {
  const auto rows = RowsWith({1, 2, 3});
  Database other(path);
  const auto others = other.OpenRecordset("log");
  EXPECT_EQ(ValueText(rows->Get("note")), "");
  Add(*other.OpenRecordset("log"), 9);
  Change(*others, "note", "kept"s);
  others->FindFirst("[type] = 3");
  Change(*others, "type", int64_t{30});
  others->FindFirst("[type] = 2");
  others->Delete();
  Add(*Rows(), 8);  // A row that has been read holds nobody's writing back.
  // An edit begins from the row as it now stands, not as it was read.
  Change(*rows, "type", int64_t{10});
  EXPECT_EQ(ValueText(rows->Get("type")) + ValueText(rows->Get("note")), "10kept");
  EXPECT_EQ(rows->RecordCount(), 3);
  rows->MoveNext();
  EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), errors::kRecordDeleted);
  rows->MoveNext();
  Add(*rows, 4);
  EXPECT_EQ(ValueNumber(rows->Get(1)), 30);  // Adding leaves the current row.
  EXPECT_EQ(Stored(), "10 30 9 8 4");
  rows->MoveNext();
  rows->Edit();
  other.OpenRecordset("Select * From [log] Where [type] = 4")->Delete();
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::kRecordDeleted);
  Add(*rows, 5);  // It takes the key of the row that has gone, and appears once.
  EXPECT_EQ(ValueNumber(rows->Get(1)), 5);
  EXPECT_EQ(rows->RecordCount(), 4);
}

TEST_F(DatabaseTest, DeletesAndFindsInEveryWayThatTheSystemWalks) {
  RowsWith({1, 2, 3, 2});
  auto rows = Rows("Select * From [log] Where [type] < 3");
  while (!rows->Eof() && rows->RecordCount() > 0) {
    rows->MoveFirst();
    rows->Delete();
  }
  EXPECT_TRUE(rows->Eof() && rows->Bof());
  EXPECT_EQ(Stored(), "3");

  rows = RowsWith({2, 2, 3, 1});
  for (; !rows->Eof(); rows->MoveNext())
    if (ValueNumber(rows->Get("type")) == 2) rows->Delete();
  EXPECT_EQ(Stored(), "3 3 1");
  rows->FindFirst("[type] = 3 And [when] = #2026/3/10#");
  EXPECT_EQ(rows->AbsolutePosition(), 0);
  for (const bool noMatch : {false, true}) {
    rows->FindNext("[type] = 3");
    EXPECT_EQ(rows->NoMatch(), noMatch);
    EXPECT_EQ(rows->AbsolutePosition(), 1);
  }
  for (rows->FindFirst("[type] = 3"); !rows->NoMatch(); rows->FindNext("[type] = 3")) {
    rows->Delete();
    EXPECT_EQ(ErrorOf([&] { rows->Get(0); }), errors::kNoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), errors::kNoCurrentRecord);
  }
  EXPECT_EQ(Stored(), "1");
}

TEST_F(DatabaseTest, EachTypeOfFieldKeepsWhatFitsAndRefusesTheRest) {
  const std::string odd = "it's; [x] \xE6\x99\x82\0#"s, no = "refused";
  const std::map<std::string, std::vector<std::pair<Value, std::string>>> cases{
      {"Load", {{1.5, "2"}, {int64_t{255}, "255"}, {254.5, "254"}, {255.5, no}, {-0.6, no}}},
      {"type", {{" 35%"s, "35"}, {2147483647.0, "2147483647"}, {2147483648.0, no}, {NAN, no}}},
      {"input VOLTAGE", {{220.5, "220.5"}, {double{27.1F}, "27.1"}, {Value(), ""}}},
      {"when", {{"2026/3/9 23:5:0"s, "2026-03-09 23:05:00"}, {""s, no}, {"2026/2/30"s, no}}},
      {"note", {{odd, odd}, {int64_t{7}, "7"}}},
  };
  const auto rows = Rows();
  const auto kept = [&](const std::string& field, const Value& value) {
    rows->AddNew();
    if (ErrorOf([&] { rows->Set(field, value); }) == errors::kDataConversion) return no;
    rows->Update();
    rows->MoveLast();
    return ValueText(rows->Get(field));
  };
  for (const auto& [field, values] : cases)
    for (const auto& [value, text] : values) EXPECT_EQ(kept(field, value), text) << field;
  // A limit that a person types meets the number that the person sees.
  EXPECT_EQ(Rows("Select * From [log] Where [Input voltage] = 027.1")->RecordCount(), 1);
}

TEST_F(DatabaseTest, EveryMisuseHasItsNumber) {
  const auto rows = RowsWith({1});
  const std::string rubbish = path + "x", readOnly = path + "y";
  std::ofstream(rubbish) << std::string(8192, 'x');
  fs::copy_file(path, readOnly);
  fs::permissions(readOnly, fs::perms::owner_read);
  const std::pair<int, std::function<void()>> cases[] = {
      {errors::kItemNotFound, [&] { rows->Get("nothing"); }},
      {errors::kItemNotFound, [&] { rows->Get(5); }},
      {errors::kItemNotFound, [&] { rows->FieldName(-1); }},
      {errors::kNoEdit, [&] { rows->Edit(), rows->Update(), rows->Update(); }},
      {errors::kNoEdit, [&] { rows->AddNew(), rows->MoveFirst(), rows->Update(); }},
      {errors::kNoCurrentRecord, [&] { rows->MoveLast(), rows->MoveNext(), rows->MoveNext(); }},
      {errors::kNoCurrentRecord, [&] { Rows("Select * From log Where 1=2")->MoveFirst(); }},
      {errors::kTableNotFound, [&] { Rows("nothing"); }},
      {errors::kQuerySyntax, [&] { Rows("Select * From log; x"); }},
      // A misspelt column must not pass for a text that is always, or never, true.
      {errors::kDatabaseFailure, [&] { rows->FindFirst("[evnet] <> 'D1'"); }},
      {errors::kDatabaseNotFound, [&] { Database give(path + "z"); }},
      {errors::kDatabaseReadOnly, [&] { Database give(readOnly); }},
      {errors::kNotADatabase, [&] { Database give(rubbish); }},
  };
  for (const auto& c : cases) EXPECT_EQ(ErrorOf(c.second), c.first) << "case " << &c - cases;
  EXPECT_FALSE(fs::exists(path + "z"));
}

TEST_F(DatabaseTest, ATransactionIsWholeOrNothingAndABusyFileCostsOneRow) {
  const auto rows = RowsWith({1});
  {
    Database leaving(path);
    leaving.BeginTransaction();
    EXPECT_EQ(ErrorOf([&] { Add(*rows, 2); }), errors::kDatabaseFailure);
    Add(*leaving.OpenRecordset("log"), 3);
    EXPECT_EQ(Stored(), "1");
  }
  database->BeginTransaction();
  Add(*rows, 4);
  database->Rollback();
  database->BeginTransaction();
  Add(*rows, 5);
  database->CommitTransaction();
  EXPECT_EQ(Stored(), "1 5");
}

TEST_F(DatabaseTest, CommittedRowsOutliveAKilledWriter) {
  database.reset();
  std::signal(SIGCHLD, SIG_DFL);
  const auto writeAndDie = [this] {
    database.emplace(path);
    RowsWith({1, 2, 3});
    database->BeginTransaction();
    RowsWith({4});
    raise(SIGKILL);
  };
  EXPECT_EXIT(writeAndDie(), testing::KilledBySignal(SIGKILL), "");
  EXPECT_EQ(Stored(), "1 2 3");
}

}  // namespace
}  // namespace platform

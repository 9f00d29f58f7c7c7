// The data history: the query that limits make, the result in the grid, and the exported file.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/time/events.h"
#include "support/windows.h"
#include "views/history/data_history.h"
#include "views/history/export_panel.h"
#include "views/history/rows/history_query.h"
#include "views/history/save_dialog.h"
#include "views/kit/calendar/calendar_page.h"
#include "views/kit/calendar/month_calendar.h"
#include "views/kit/controls/picture_button.h"

namespace varek {
namespace {

using test::Nth, test::Saying;

TEST(HistoryQuery, WritesALimitAsThreeCharactersAPointAndOne) {
  const std::pair<const char*, const char*> cases[] = {{"220,5", "220.5"},
                                                       {"5", "005.0"},
                                                       {"5.", "005.0"},
                                                       {",5", "000.5"},
                                                       {"1234.5", "123.5"},
                                                       {"12345678901234567890", "123.0"},
                                                       {"219.25", "219.3"},
                                                       {"219.95", "220.0"},
                                                       {"0.04", "000.0"},
                                                       // No numbers: the database refuses them.
                                                       {"1.2.3", "1.2.3"},
                                                       {",", ",.,"},
                                                       {"Dont C", "Don.C"},
                                                       {"", "."}};
  for (const auto& [limit, written] : cases) EXPECT_EQ(LimitInQuery(limit), written) << limit;
}

TEST(HistoryQuery, ChainsTheLimitsThatAreGiven) {
  const std::vector<std::string> columns{"date", "In", "Out", "Load", "Hz", "Bat", "Temp"};
  const std::pair<HistoryLimits, const char*> cases[] = {
      {{}, "[date] > #00:00:00#"},
      {{"07:00:00", "08:00:00", {{{"220,5"}}}},
       "[date] > #07:00:00# And [date] < #08:00:00# And [In] > 220.5"},
      {{kDontCare, kDontCare, {{{kDontCare, "5", "Or"}, {"1", "2", "And"}, {}, {"49", "x", "Or"}}}},
       "[date] > #00:00:00# Or [In] < 005.0 And [Out] > 001.0 And [Out] < 002.0"
       " Or [Hz] > 049.0 And [Hz] < x.x"}};
  for (const auto& [limits, where] : cases)
    EXPECT_EQ(HistoryQuery("20260310", columns, limits),
              std::string("Select * From [20260310] Where ") + where);
}

constexpr int kRows = 300;

/// Today has 300 samples from 10:00:00 on: 200 V rising by a tenth a second.
class HistoryTest : public test::WindowTest {
 protected:
  HistoryTest() {
    DataCenter.HasLoad = kSet;
    DataCenter.HasTemperature = kSet;
    OpenDatabases();
    Records.data->BeginTransaction();
    for (int i = 0; i < kRows; ++i) {
      Records.samples->AddNew();
      Records.samples->Set(0, "10:0" + std::to_string(i / 60) + ":" + std::to_string(i % 60));
      for (const int field : {1, 2, 4, 6}) Records.samples->Set(field, 200 + i / 10.0);
      for (const int field : {3, 5}) Records.samples->Set(field, int64_t{i % 100});
      Records.samples->Update();
    }
    Records.data->CommitTransaction();
    ReplaceSaveDialog([this](const SaveQuestion& question) {
      asked = question;
      if (duringExport) platform::Post("test", duringExport);
      return fileName;
    });
    ShowDataHistory();
    test::Settle();
  }
  ~HistoryTest() override { ReplaceSaveDialog(nullptr); }

  static Form2& Form() { return DataHistory().Get(); }
  static QLineEdit& Limit(size_t limit) { return Nth<QLineEdit>(Form(), limit); }
  static QComboBox& JoiningWord(size_t field) { return Nth<QComboBox>(Form(), 2 + field); }
  static QTableView& Grid() { return Nth<QTableView>(Form()); }
  static std::string Position() {
    return Form().findChild<QLabel*>(QStringLiteral("position"))->text().toStdString();
  }
  static void Query() { test::Click(Saying<QPushButton>(Form(), "Query")); }
  static void Export() { test::Click(Saying<PictureButton>(Form(), "Export")); }
  static QString Cell(int row, int column) {
    return Grid().model()->index(row, column).data().toString();
  }
  std::string Exported() const { return platform::ReadWholeFile(fileName); }

  std::string fileName = Folder() + "/day.csv";
  SaveQuestion asked;
  std::function<void()> duringExport;
};

TEST_F(HistoryTest, FieldsTakeOnlyWhatALimitIsMadeOf) {
  QLineEdit& field = Limit(3);
  test::Click(field);
  EXPECT_EQ(field.selectedText().toStdString(), kDontCare);
  test::Type(field, "2x-2 0,E5.\x16\r\t");
  test::Tab(field, QEvent::FocusOut);
  EXPECT_EQ(field.text().toStdString(), "220,5.");
  field.clear();
  test::Tab(field, QEvent::FocusOut);
  EXPECT_EQ(field.text().toStdString(), kDontCare);
}

TEST_F(HistoryTest, ShowsWhatTheQueryFindsAndKeepsItWhenALimitIsRefused) {
  Query();
  EXPECT_EQ(Position(), "[20260310] 1/300");
  EXPECT_EQ(Cell(299, 0).toStdString() + " " + Cell(299, 1).toStdString(), "10:04:59 229.9");
  Grid().selectRow(299);
  EXPECT_EQ(Position(), "[20260310] 300/300");

  Limit(0).setText(QStringLiteral("229"));
  Query();
  EXPECT_EQ(Position(), "[20260310] 1/9");  // Strictly above.
  Limit(3).setText(QStringLiteral("200,2"));
  JoiningWord(1).setCurrentIndex(1);
  Query();
  EXPECT_EQ(Position(), "[20260310] 1/11");

  for (const char* refused : {"1.2.3", ",", "Dont Car", "1;x", "#"}) {
    messages.clear();
    Limit(0).setText(QString::fromLatin1(refused));
    Query();
    EXPECT_EQ(messages, std::vector<std::string>{"A limit is not a valid number."}) << refused;
    EXPECT_EQ(Position() + Cell(0, 1).toStdString(), "[20260310] 1/11200");
  }
  Nth<QComboBox>(Form(), 1).setCurrentIndex(3);
  test::Click(Saying<QPushButton>(Form(), "Clear"));
  Query();
  EXPECT_EQ(Position(), "[20260310] 1/300");
}

TEST_F(HistoryTest, ADayWithoutDataIsToldAndLeavesTheOldOne) {
  auto& calendar = Nth<MonthCalendar>(Form());
  test::Click(calendar, calendar.CellRect(CellOfDay(2026, 3, 9)).center());
  EXPECT_EQ(messages, std::vector<std::string>{"No data for this day!"});
  Query();
  EXPECT_EQ(Position(), "[20260310] 1/300");

  platform::TableDef empty{"20260309", {{"date", platform::FieldType::Date}}};
  for (const char* value : {"In", "Out", "Load", "Hz", "Bat", "Temp"})
    empty.fields.push_back({value, platform::FieldType::Single});
  Records.data->AppendTable(empty);
  test::Click(calendar, calendar.CellRect(CellOfDay(2026, 3, 9)).center());
  Query();
  EXPECT_EQ(Position(), "[20260309] 0/0");
  Export();
  EXPECT_EQ(asked.filters, "");  // Nothing to write, nothing asked.

  Records.data->DeleteTable("20260309");
  Query();
  EXPECT_EQ(messages.size(), 2U);
}

TEST_F(HistoryTest, WhatTheUnitLacksIsHiddenAndNotExported) {
  DataCenter.HasTemperature = kClear;
  DataCenter.HasLoad = kClear;
  Query();
  for (int column = 0; column < 7; ++column)
    EXPECT_EQ(Grid().isColumnHidden(column), column == 3 || column == 6) << column;
  EXPECT_TRUE(Limit(4).isHidden() && Limit(11).isHidden() && JoiningWord(5).isHidden());
  Export();
  EXPECT_TRUE(
      Exported().starts_with("date,Input voltage,Output voltage,Frequency,"
                             "Battery capacious,\r\n10:00:00,200,200,200,0,\r\n"));
}

TEST_F(HistoryTest, TheFileHoldsTheResultWithWhichTheExportBegan) {
  Query();
  duringExport = [] {
    EXPECT_FALSE(Nth<ExportPanel>(Form()).isHidden());
    Limit(0).setText(QStringLiteral("229"));
    Query();
    Grid().selectRow(5);
  };
  Export();
  EXPECT_EQ(asked.filters, "CSV (*.csv)|*.csv|*.* (*.*)|*.*");
  EXPECT_EQ(asked.folder + "/" + asked.name, Folder() + "/20260310.csv");
  EXPECT_EQ(Position(), "[20260310] 6/9");

  std::string expected;
  const auto rows = Records.data->OpenRecordset("20260310");
  for (int field = 0; field < 7; ++field) expected += rows->FieldName(field) + ",";
  for (expected += "\r\n"; !rows->Eof(); rows->MoveNext()) {
    for (int field = 0; field < 7; ++field) expected += platform::ValueText(rows->Get(field)) + ",";
    expected += "\r\n";
  }
  EXPECT_EQ(Exported(), expected);
}

TEST_F(HistoryTest, AnExportThatFailsIsToldAndLeavesNoHalfFile) {
  Query();
  const std::string usual = fileName;
  for (const std::string& name : {Folder() + "/absent/day.csv", std::string("/dev/full"), usual}) {
    messages.clear();
    fileName = name;
    if (name == usual) duringExport = [] { Records.data->DeleteTable("20260310"); };
    Export();
    EXPECT_EQ(messages, std::vector<std::string>{"The file cannot be opened for writing."}) << name;
    EXPECT_TRUE(Nth<ExportPanel>(Form()).isHidden());
  }
  EXPECT_FALSE(std::filesystem::exists(usual));
  EXPECT_EQ(Cell(8, 1).toStdString(), "");
}

TEST_F(HistoryTest, AWindowThatGoesEndsItsExport) {
  Query();
  duringExport = [] { UnloadForm(Form2::kNumber); };
  Export();
  EXPECT_FALSE(DataHistory().IsLoaded());
  EXPECT_FALSE(std::filesystem::exists(fileName));
}

TEST_F(HistoryTest, TheSaveDialogProposesANameAndCompletesAnother) {
  ReplaceSaveDialog(nullptr);
  std::string chosen;
  AskSaveName(Form(), {"", Folder(), "20260310.csv", "CSV (*.csv)|*.csv"},
              [&](const std::string& file) { chosen = file; });
  auto* dialog = Form().findChild<QFileDialog*>();
  auto* field = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  EXPECT_EQ(field->text(), QStringLiteral("20260310.csv"));
  field->setText(QStringLiteral("mine"));
  QMetaObject::invokeMethod(dialog, "accept");
  platform::DoEvents();
  EXPECT_EQ(chosen, Folder() + "/mine.csv");
}

}  // namespace
}  // namespace varek

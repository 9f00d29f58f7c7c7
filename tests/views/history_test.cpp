// The data history: the query that limits make, the result in the grid, and the exported file.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableView>
#include <filesystem>

#include "core/data_center.h"
#include "core/error_list.h"
#include "platform/events.h"
#include "platform/paths.h"
#include "records/databases.h"
#include "settings/language.h"
#include "support/monitor_fixture.h"
#include "views/data_history.h"
#include "views/history_query.h"
#include "views/kit/calendar_page.h"
#include "views/kit/month_calendar.h"
#include "views/kit/picture_button.h"
#include "views/query_panel.h"
#include "views/save_dialog.h"

namespace varek {
namespace {

TEST(HistoryQuery, WritesALimitAsThreeCharactersAPointAndOne) {
  const std::pair<const char*, const char*> cases[] = {{"220,5", "220.5"},
                                                       {"220.5", "220.5"},
                                                       {"5", "005.0"},
                                                       {"0", "000.0"},
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

TEST(HistoryQuery, IsTheChainAsItWasBuilt) {
  const std::vector<std::string> columns{"date", "In", "Out", "Load", "Hz", "Bat", "Temp"};
  struct Case {
    HistoryLimits limits;
    const char* where;
  };
  const Case cases[] = {
      {{}, "[date] > #00:00:00#"},
      {{"07:00:00", kDontCare, {}}, "[date] > #07:00:00#"},
      {{kDontCare, "23:59:59", {}}, "[date] > #00:00:00# And [date] < #23:59:59#"},
      {{"07:00:00", "08:00:00", {{{"220,5"}}}},
       "[date] > #07:00:00# And [date] < #08:00:00# And [In] > 220.5"},
      {{kDontCare,
        kDontCare,
        {{{kDontCare, "5", "Or"},
          {"1", "2", "And"},
          {},
          {"49", "51.5", "Or"},
          {},
          {"1", "x", "Or"}}}},
       "[date] > #00:00:00# Or [In] < 005.0 And [Out] > 001.0 And [Out] < 002.0"
       " Or [Hz] > 049.0 And [Hz] < 051.5 Or [Temp] > 001.0 And [Temp] < x.x"}};
  for (const Case& c : cases)
    EXPECT_EQ(HistoryQuery("20260310", columns, c.limits),
              std::string("Select * From [20260310] Where ") + c.where);
}

constexpr int kRows = 300;

/// Today has 300 samples from 10:00:00 on: 200 V rising by a tenth a second.
class HistoryTest : public test::MonitorTest {
 protected:
  HistoryTest() {
    test::InstallPictures(Folder());
    Loadlanguage(0);
    SetHasLoad(true);
    SetHasTemperature(true);
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
    Pump();
  }
  ~HistoryTest() override { ReplaceSaveDialog(nullptr); }

  static Form2& Form() { return DataHistory().Get(); }
  static QLineEdit& Limit(size_t field) { return Form().Query().Limit(field); }

  /// What an event posts in its turn waits for the next round.
  static void Pump() {
    for (int round = 0; round < 5; ++round) platform::DoEvents();
  }
  static void Click(QWidget& widget, QPoint at) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, at, widget.mapToGlobal(QPointF(at)), Qt::LeftButton, Qt::LeftButton,
                        {});
      QApplication::sendEvent(&widget, &event);
    }
    Pump();
  }
  static void Click(QWidget& widget) { Click(widget, widget.rect().center()); }
  static void Type(QWidget& widget, const QString& text, int key = Qt::Key_unknown) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &press);
  }
  static void Query() {
    Form().Query().QueryButton().click();
    Pump();
  }
  static QString Cell(int row, int column) {
    const QAbstractItemModel& model = *Form().Grid().model();
    return model.index(row, column).data().toString();
  }
  std::string Exported() const { return platform::ReadWholeFile(fileName); }

  std::string fileName = Folder() + "/day.csv";
  SaveQuestion asked;
  std::function<void()> duringExport;
};

TEST_F(HistoryTest, FieldsTakeOnlyWhatALimitIsMadeOf) {
  QLineEdit& field = Limit(3);
  Click(field);
  EXPECT_EQ(field.selectedText().toStdString(), kDontCare);
  for (const char* key : {"2", "x", "-", "2", " ", "0", ",", "E", "5", ".", "\x16", "\r", "\t"})
    Type(field, QString::fromLatin1(key));
  EXPECT_EQ(field.text().toStdString(), "220,5.");
  Type(field, QStringLiteral("\b"), Qt::Key_Backspace);
  EXPECT_EQ(field.text().toStdString(), "220,5");

  const auto leave = [&field] {
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(&field, &out);
  };
  leave();
  EXPECT_EQ(field.text().toStdString(), "220,5");
  field.clear();
  leave();
  EXPECT_EQ(field.text().toStdString(), kDontCare);
}

TEST_F(HistoryTest, ShowsWhatTheQueryFindsAndKeepsItWhenALimitIsRefused) {
  EXPECT_EQ(Form().Position(), "");
  Query();
  EXPECT_EQ(Form().Position(), "[20260310] 1/300");
  EXPECT_EQ(Cell(299, 0).toStdString() + " " + Cell(299, 1).toStdString(), "10:04:59 229.9");
  Form().Grid().selectRow(299);
  EXPECT_EQ(Form().Position(), "[20260310] 300/300");

  Limit(0).setText(QStringLiteral("229"));
  Query();
  EXPECT_EQ(Form().Position(), "[20260310] 1/9");  // Strictly above.
  Limit(3).setText(QStringLiteral("200,2"));
  Form().Query().JoiningWord(1).setCurrentIndex(1);
  Query();
  EXPECT_EQ(Form().Position(), "[20260310] 1/11");

  for (const char* refused : {"1.2.3", ",", "Dont Car", "1;x", "#"}) {
    messages.clear();
    Limit(0).setText(QString::fromLatin1(refused));
    Query();
    EXPECT_EQ(messages, std::vector{LangText[58]}) << refused;
    EXPECT_EQ(Form().Position(), "[20260310] 1/11");
    EXPECT_EQ(Cell(0, 1).toStdString(), "200");
  }
  Form().Query().Time(1).setCurrentIndex(3);
  Form().Query().ClearButton().click();
  Query();
  EXPECT_EQ(Form().Position(), "[20260310] 1/300");
}

TEST_F(HistoryTest, ADayWithoutDataIsToldAndLeavesTheOldOne) {
  MonthCalendar& calendar = Form().Calendar();
  Click(calendar, calendar.CellRect(CellOfDay(2026, 3, 9)).center());
  EXPECT_EQ(messages, std::vector{LangText[121] + "!"});
  Query();
  EXPECT_EQ(Form().Position(), "[20260310] 1/300");

  Records.data->AppendTable({"20260309",
                             {{"date", platform::FieldType::Date},
                              {"In", platform::FieldType::Single},
                              {"Out", platform::FieldType::Single},
                              {"Load", platform::FieldType::Byte},
                              {"Hz", platform::FieldType::Single},
                              {"Bat", platform::FieldType::Byte},
                              {"Temp", platform::FieldType::Single}}});
  Click(calendar, calendar.CellRect(CellOfDay(2026, 3, 9)).center());
  Query();
  EXPECT_EQ(Form().Position(), "[20260309] 0/0");
  Click(Form().ExportButton());
  EXPECT_EQ(asked.filters, "");  // Nothing to write, nothing asked.

  Records.data->DeleteTable("20260309");
  Query();
  EXPECT_EQ(messages.size(), 2U);
}

TEST_F(HistoryTest, RowsThatGoMeanwhileStayBlank) {
  Query();
  Records.data->DeleteTable("20260310");
  EXPECT_EQ(Cell(7, 1).toStdString() + Cell(8, 1).toStdString(), "");
  EXPECT_EQ(Form13::List1().size(), 1U);
}

TEST_F(HistoryTest, WhatTheUnitLacksIsHiddenAndNotExported) {
  SetHasTemperature(false);
  SetHasLoad(false);
  Query();
  for (int column = 0; column < 7; ++column)
    EXPECT_EQ(Form().Grid().isColumnHidden(column), column == 3 || column == 6) << column;
  EXPECT_TRUE(Limit(4).isHidden() && Limit(11).isHidden());
  EXPECT_TRUE(Form().Query().JoiningWord(5).isHidden());
  EXPECT_FALSE(Limit(0).isHidden());
  Click(Form().ExportButton());
  EXPECT_TRUE(
      Exported().starts_with("date,Input voltage,Output voltage,Frequency,"
                             "Battery capacious,\r\n10:00:00,200,200,200,0,\r\n"));
}

TEST_F(HistoryTest, TheFileHoldsTheResultWithWhichTheExportBegan) {
  Query();
  duringExport = [] {
    EXPECT_TRUE(Form().IsExporting());
    Limit(0).setText(QStringLiteral("229"));
    Query();
    Form().Grid().selectRow(5);
  };
  Click(Form().ExportButton());
  EXPECT_EQ(asked.filters, "CSV (*.csv)|*.csv|*.* (*.*)|*.*");
  EXPECT_EQ(asked.folder, Folder());
  EXPECT_EQ(asked.name, "20260310.csv");
  EXPECT_FALSE(Form().IsExporting());
  EXPECT_EQ(Form().Position(), "[20260310] 6/9");

  std::string expected;
  const auto rows = Records.data->OpenRecordset("20260310");
  for (int field = 0; field < 7; ++field) expected += rows->FieldName(field) + ",";
  for (expected += "\r\n"; !rows->Eof(); rows->MoveNext()) {
    for (int field = 0; field < 7; ++field) expected += platform::ValueText(rows->Get(field)) + ",";
    expected += "\r\n";
  }
  EXPECT_EQ(Exported(), expected);
}

TEST_F(HistoryTest, AFileThatCannotBeWrittenIsTold) {
  Query();
  for (const char* name : {"/nonexistent/day.csv", "/dev/full"}) {
    messages.clear();
    fileName = name;
    Click(Form().ExportButton());
    EXPECT_EQ(messages, std::vector{LangText[59]}) << name;
    EXPECT_FALSE(Form().IsExporting());
  }
}

TEST_F(HistoryTest, AnExportWhoseRowsGoLeavesNoHalfFile) {
  Query();
  duringExport = [] { Records.data->DeleteTable("20260310"); };
  Click(Form().ExportButton());
  EXPECT_EQ(messages, std::vector{LangText[59]});
  EXPECT_FALSE(std::filesystem::exists(fileName));
}

TEST_F(HistoryTest, AWindowThatGoesEndsItsExport) {
  Query();
  duringExport = [] { UnloadForm(Form2::kNumber); };
  Click(Form().ExportButton());
  EXPECT_FALSE(DataHistory().IsLoaded());
  EXPECT_FALSE(DataCenter.FormOpen[Form2::kNumber]);
  EXPECT_FALSE(std::filesystem::exists(fileName));
}

TEST_F(HistoryTest, TheSaveDialogProposesANameAndCompletesAnother) {
  ReplaceSaveDialog(nullptr);
  std::string chosen;
  AskSaveName(Form(), {"", Folder(), "20260310.csv", "CSV (*.csv)|*.csv"},
              [&](const std::string& file) { chosen = file; });
  auto* dialog = Form().findChild<QFileDialog*>();
  auto* field = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  const QString proposed = field->text();
  field->setText(QStringLiteral("mine"));
  QMetaObject::invokeMethod(dialog, "accept");
  platform::DoEvents();
  EXPECT_EQ(chosen, Folder() + "/mine.csv");
  EXPECT_EQ(proposed, QStringLiteral("20260310.csv"));
}

}  // namespace
}  // namespace varek

// The language picker and what a choice changes in open windows, the web log, the version window
// and the list of manuals.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>
#include <filesystem>
#include <fstream>

#include "core/configuration.h"
#include "core/error_list.h"
#include "platform/database.h"
#include "platform/events.h"
#include "platform/open_document.h"
#include "platform/paths.h"
#include "records/databases.h"
#include "settings/language.h"
#include "settings/language_picker.h"
#include "settings/manuals.h"
#include "settings/version_window.h"
#include "settings/web_log.h"
#include "support/monitor_fixture.h"
#include "views/dashboard.h"
#include "views/event_log.h"
#include "views/kit/picture_button.h"

namespace varek {
namespace {

class LanguageWindowsTest : public test::MonitorTest {
 protected:
  LanguageWindowsTest() {
    test::InstallPictures(Folder());
    Loadlanguage(0);
  }
  ~LanguageWindowsTest() override {
    platform::ReplaceDocumentOpener(nullptr);
    for (const int form : {1, 6, 7, 15, 16, 17}) UnloadForm(form);
  }

  static void Click(QWidget& widget) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      const QPointF at = widget.rect().center();
      QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
      QApplication::sendEvent(&widget, &event);
    }
    platform::DoEvents();
    platform::DoEvents();  // A window that the button closes goes one round later.
  }

  static void PickLanguage(int index) {
    ShowLanguagePicker();
    Click(*LanguagePicker().Get().findChildren<QWidget*>(QStringLiteral("Picture1")).at(index));
  }

  template <typename Control>
  static Control& Find(QWidget& window, const char* name) {
    return *window.findChild<Control*>(QString::fromLatin1(name));
  }

  static std::string Caption(const QWidget& window) { return window.windowTitle().toStdString(); }

  static void AddLogin(const std::string& time, const std::string& address) {
    platform::Database database(platform::ProgramPath(kEventFile));
    const auto table = database.OpenRecordset(kWebLogTable);
    table->AddNew();
    table->Set(0, time);
    table->Set(1, address);
    table->Update();
  }
};

TEST_F(LanguageWindowsTest, AChoiceRetitlesEveryOpenWindowAndIsKept) {
  const char* const folders[] = {"httpEnglish\\", "httpBig5\\", "httpGB232\\"};
  ShowDashboard();
  ShowEventLog();
  ShowWebLog();
  ShowVersion();
  ShowManuals();
  for (const int index : {1, 2, 0}) {
    ShowLanguagePicker();
    EXPECT_TRUE(DataCenter.FormOpen[Form7::kNumber]);
    EXPECT_EQ(Caption(LanguagePicker().Get()), LangText[29]);
    PickLanguage(index);
    EXPECT_FALSE(LanguagePicker().IsLoaded());
    EXPECT_FALSE(DataCenter.FormOpen[Form7::kNumber]);
    EXPECT_EQ(Caption(Dashboard().Get()), LangText[10]);
    EXPECT_EQ(Caption(EventLog().Get()), LangText[204]);
    EXPECT_EQ(Caption(WebLog().Get()), LangText[30]);
    EXPECT_EQ(Caption(VersionWindow().Get()), LangText[226]);
    EXPECT_EQ(Caption(Manuals().Get()), LangText[306]);
    EXPECT_EQ(DataCenter.WebLanguageFolder, folders[index]);

    DataCenter.LanguageIndex = -1;
    ReadConfig();
    EXPECT_EQ(DataCenter.LanguageIndex, index);
  }
  EXPECT_EQ(LangText[0], "English");
  EXPECT_TRUE(Form13::List1().empty());
}

TEST_F(LanguageWindowsTest, WebLogShowsTheLoginsOfNow) {
  AddLogin("2026-03-09 08:15:00", "192.168.1.20");
  ShowWebLog();
  auto& grid = Find<QTableWidget>(WebLog().Get(), "DBGrid1");
  ASSERT_EQ(grid.rowCount(), 1);
  EXPECT_EQ(grid.item(0, 0)->text(), QStringLiteral("2026/03/09 08:15:00"));
  EXPECT_EQ(grid.item(0, 1)->text(), QStringLiteral("192.168.1.20"));
  EXPECT_EQ(grid.horizontalHeaderItem(0)->text().toStdString(), LangText[175]);
  EXPECT_EQ(grid.horizontalHeaderItem(1)->text().toStdString(), LangText[264]);

  AddLogin("2026-03-10 09:00:00", "10.0.0.7");
  ShowWebLog();
  ASSERT_EQ(grid.rowCount(), 2);
  EXPECT_EQ(grid.item(1, 1)->text(), QStringLiteral("10.0.0.7"));

  platform::Database(platform::ProgramPath(kEventFile)).DeleteTable(kWebLogTable);
  ShowWebLog();
  EXPECT_EQ(grid.rowCount(), 0);
  EXPECT_EQ(Form13::List1().size(), 1U);
  EXPECT_TRUE(WebLog().Get().isVisible());
}

TEST_F(LanguageWindowsTest, VersionStandsInTheMiddleAndLeadsToTheManuals) {
  for (const int index : {0, 1, 2}) {
    PickLanguage(index);
    ShowVersion();
    Form16& form = VersionWindow().Get();
    const auto& label = Find<QLabel>(form, "Label1");
    EXPECT_EQ(label.text().toStdString(), LangText[305] + "Version: Varek 705\n\n");
    const QSize room = Find<QWidget>(form, "panel").size() - label.size();
    EXPECT_EQ(label.pos(), QPoint(room.width() / 2, room.height() / 2));
    for (const char* name : {"Label1", "Label5", "Label4"}) {
      const auto& control = Find<QWidget>(form, name);
      EXPECT_LE(control.sizeHint().width(), control.width()) << index << " " << name;
      EXPECT_TRUE(control.parentWidget()->rect().contains(control.geometry())) << name;
    }
  }
  Form16& form = VersionWindow().Get();
  Find<QPushButton>(form, "Label4").click();
  EXPECT_TRUE(Manuals().IsLoaded());
  form.printout();
  EXPECT_GT(Find<QListWidget>(form, "List1").count(), 0);
  EXPECT_TRUE(Find<QListWidget>(form, "List1").isHidden());
  Click(Find<PictureButton>(form, "Picture6"));
  EXPECT_FALSE(VersionWindow().IsLoaded());
}

TEST_F(LanguageWindowsTest, AManualOpensOrTellsWhyNot) {
  std::filesystem::create_directories(Folder() + "/manual/Big5");
  std::ofstream(Folder() + "/manual/Big5/web_console_manual.pdf") << "%PDF";
  PickLanguage(1);
  std::vector<std::string> opened;
  bool registered = true;
  platform::ReplaceDocumentOpener([&](const std::string& path) {
    opened.push_back(path);
    return registered;
  });
  ShowManuals();
  auto& list = Find<QListWidget>(Manuals().Get(), "List1");
  ASSERT_EQ(list.count(), 2);
  EXPECT_EQ(list.currentRow(), 0);
  EXPECT_EQ(list.item(1)->text().toStdString(), LangText[312]);

  struct Case {
    int index;
    bool registered;
    size_t opened;
    std::vector<std::string> messages;
  };
  const Case cases[] = {{0, true, 0, {LangText[307]}},
                        {1, false, 1, {LangText[308]}},
                        {1, true, 1, {}},
                        {2, true, 0, {}},
                        {-1, true, 0, {}}};
  for (const Case& c : cases) {
    messages.clear();
    opened.clear();
    registered = c.registered;
    Manuals().Get().showpdf(c.index);
    platform::DoEvents();
    EXPECT_EQ(messages, c.messages) << c.index;
    EXPECT_EQ(opened.size(), c.opened) << c.index;
    EXPECT_EQ(list.currentRow(), 0);
    EXPECT_TRUE(Manuals().IsLoaded());
  }

  opened.clear();
  list.setCurrentRow(1);
  Q_EMIT list.doubleClicked(list.currentIndex());
  EXPECT_EQ(opened, std::vector<std::string>{Folder() + "/manual/Big5/web_console_manual.pdf"});
}

}  // namespace
}  // namespace varek

// The e-mail and SMS settings through their controls: what is typed, sent and saved.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/configuration.h"
#include "platform/system/process.h"
#include "settings/notification/mail_settings.h"
#include "settings/notification/sms_settings.h"
#include "support/serial_line.h"
#include "support/windows.h"
#include "views/kit/controls/picture_button.h"

namespace varek {
namespace {

class NotificationSettingsTest : public test::WindowTest {
 protected:
  NotificationSettingsTest() {
    DataCenter.HasLoad = kSet;
    DataCenter.settings.MailServer = "mail.example";
    DataCenter.settings.MailEventText[3] = "four";
    DataCenter.settings.MailEventText[4] = "five";
    DataCenter.settings.MailEventEnable[4] = kSet;
    DataCenter.settings.MailEventText[9] = "overload";
  }

  static Form5& OpenMail() {
    ShowMailSettings();
    test::Settle();
    return MailSettings().Get();
  }
  static Form9& OpenSms() {
    ShowSmsSettings();
    test::Settle();
    return SmsSettings().Get();
  }

  static EventGrid& GridOf(QWidget& form) { return test::Nth<EventGrid>(form); }
  static QLineEdit& Box(QWidget& form, const char* caption) {
    return test::Saying<QLineEdit>(form, caption);
  }
  static void ClickCell(EventGrid& grid, int row, int column) {
    grid.setFocus(Qt::MouseFocusReason);
    test::Click(*grid.viewport(), grid.visualItemRect(grid.item(row, column)).center());
  }
  static void ClickOk(QWidget& form) { test::Click(test::Saying<QPushButton>(form, "OK")); }
  static PictureButton& TestButton(const ViewWindow& form) {
    return test::Nth<PictureButton>(*form.Client());
  }
  static std::string CellText(const EventGrid& grid, int row, int column) {
    return grid.item(row, column)->text().toStdString();
  }
  std::string Config() const { return platform::ReadWholeFile(Folder() + "/config.qmz"); }
};

TEST_F(NotificationSettingsTest, AClickOrEnterOnTheSecondColumnSwitches) {
  EventGrid& grid = GridOf(OpenMail());
  ClickCell(grid, 4, 1);
  EXPECT_EQ(CellText(grid, 4, 1), "");
  test::Key(grid, Qt::Key_Return);
  EXPECT_EQ(CellText(grid, 4, 1), "YES");
  EXPECT_TRUE(MailSettings().IsLoaded());
}

TEST_F(NotificationSettingsTest, TheEditBoxWritesToTheCellOnWhichItWasOpened) {
  Form5& form = OpenMail();
  EventGrid& grid = GridOf(form);
  QLineEdit& box = *grid.EditBox();
  for (const auto& [end, text] : {std::pair{Qt::Key_Escape, "four"}, {Qt::Key_Return, "typed"}}) {
    ClickCell(grid, 3, 2);
    box.setText(QStringLiteral("typed"));
    test::Key(box, end);
    EXPECT_TRUE(box.isHidden());
    EXPECT_EQ(CellText(grid, 3, 2), text);
  }
  ClickCell(grid, 3, 2);
  box.setText(QStringLiteral("again"));
  ClickCell(grid, 4, 2);
  EXPECT_EQ(CellText(grid, 3, 2), "again");
  EXPECT_EQ(box.text().toStdString(), "five");
  grid.setCurrentCell(0, 0);
  box.setText(QStringLiteral("elsewhere"));
  Box(form, "Mail server").setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(CellText(grid, 4, 2), "elsewhere");
  EXPECT_TRUE(box.isHidden());
}

TEST_F(NotificationSettingsTest, PastedLineBreaksMoveNoSettings) {
  QApplication::clipboard()->setText(QStringLiteral("one\r\ntwo\nthree") + QChar(0));
  for (QWidget* form : {static_cast<QWidget*>(&OpenMail()), static_cast<QWidget*>(&OpenSms())}) {
    ClickCell(GridOf(*form), 3, 2);
    for (QLineEdit* box : form->findChildren<QLineEdit*>()) {
      box->selectAll();
      box->paste();
    }
    ClickOk(*form);
  }
  EXPECT_EQ(std::ranges::count(Config(), '\n'), 53);
  ReadConfig();
  for (const std::string& kept :
       {DataCenter.settings.MailServer, DataCenter.settings.MailSubject,
        DataCenter.settings.SmsAccount, DataCenter.settings.SmsApiId,
        DataCenter.settings.MailEventText[3], DataCenter.settings.SmsEventText[3]})
    EXPECT_EQ(kept, "one  two three ");
}

TEST_F(NotificationSettingsTest, WithoutALoadTheOverloadIsHiddenAndTheEditBoxFollowsAScroll) {
  DataCenter.HasLoad = kClear;
  Form5& form = OpenMail();
  EventGrid& grid = GridOf(form);
  EXPECT_EQ(grid.rowHeight(9), 0);
  form.resize(form.minimumSize());
  test::Settle();
  ClickCell(grid, 3, 2);
  grid.verticalScrollBar()->setValue(2);
  EXPECT_EQ(grid.EditBox()->y(), grid.visualItemRect(grid.item(3, 2)).y() + 2);
  ClickOk(form);
  EXPECT_EQ(DataCenter.settings.MailEventText[9], "overload");
}

TEST_F(NotificationSettingsTest, OnlyOkSaves) {
  for (const bool ok : {false, true}) {
    Form5& form = OpenMail();
    Box(form, "Mail server").setText(QStringLiteral(" new ] server "));
    ClickCell(GridOf(form), 0, 1);
    ClickCell(GridOf(form), 3, 2);
    GridOf(form).EditBox()->clear();
    ok ? ClickOk(form) : test::Key(form, Qt::Key_Escape);
    EXPECT_FALSE(MailSettings().IsLoaded());
    EXPECT_EQ(DataCenter.settings.MailServer, ok ? " new ] server " : "mail.example");
    EXPECT_EQ(DataCenter.settings.MailEventEnable[0], ToFlag(ok));
    EXPECT_EQ(DataCenter.settings.MailEventText[3], ok ? "" : "four");
  }
  EXPECT_NE(Config().find("\n new ] server \n"), std::string::npos);
}

TEST_F(NotificationSettingsTest, TheTestMailHasTheUnsavedValues) {
  Form5& form = OpenMail();
  for (const char* caption : {"Mail server", "Sender name", "Sender address", "Recipient name",
                              "Recipient address", "Subject"})
    Box(form, caption).setText(QString::fromLatin1(caption) + QStringLiteral("  "));
  test::Click(TestButton(form));
  EXPECT_EQ(Started("mailto.exe").at(0).rest,
            "[Mail server][Sender name][Sender address][Recipient name][Recipient address][Subject]"
            "[TEST OK][T][0]");
}

TEST_F(NotificationSettingsTest, OneTestAtATimeAndItShows) {
  platform::ReplaceProgramStarter(nullptr);
  const std::string sender = Folder() + "/SMSTO";
  std::ofstream(sender) << "#!/bin/sh\necho >>$0.calls; until [ -e $0.end ]; do sleep 0.02; done\n";
  std::filesystem::permissions(sender, std::filesystem::perms::owner_all);
  const auto calls = [&] {
    std::ifstream file(sender + ".calls");
    return std::count(std::istreambuf_iterator<char>(file), {}, '\n');
  };
  Form9* form = &OpenSms();
  const auto button = [&] { return TestButton(*form).Text().toStdString(); };
  const std::string usual = button();
  test::Click(TestButton(*form));
  EXPECT_NE(button(), usual);
  EXPECT_TRUE(test::PumpUntil([&] { return calls() == 1; }));
  UnloadForm(Form9::kNumber);
  form = &OpenSms();
  test::Click(TestButton(*form));
  EXPECT_NE(button(), usual);
  std::ofstream(sender + ".end") << "";
  EXPECT_TRUE(test::PumpUntil([&] {
    clock.Advance(200);
    return button() == usual;
  }));
  EXPECT_EQ(calls(), 1);
  test::Click(TestButton(*form));
  EXPECT_TRUE(test::PumpUntil([&] { return calls() == 2; }));
}

TEST_F(NotificationSettingsTest, OnlyAnotherWindowOfOursBringsTheSettingsBack) {
  QLineEdit& server = Box(OpenMail(), "Mail server");
  server.setText(QStringLiteral("typed"));
  QWidget foreign;
  foreign.show();
  foreign.activateWindow();
  OpenMail();
  EXPECT_EQ(server.text(), QStringLiteral("typed"));
  OpenSms();
  OpenMail();
  EXPECT_EQ(server.text(), QStringLiteral("mail.example"));
}

TEST_F(NotificationSettingsTest, ATextMessageIsCutToItsLimit) {
  const QString narrow = QStringLiteral("a"), wide = QStringLiteral("\u96fb");
  const std::pair<QString, qsizetype> cases[] = {
      {narrow.repeated(160), 160},
      {QStringLiteral("\u00e9").repeated(161), 160},
      {wide.repeated(70), 70},
      {narrow.repeated(100) + wide, 70},
      {narrow.repeated(69) + QStringLiteral("\U0001F50B"), 69}};
  Form9& form = OpenSms();
  QLineEdit& box = *GridOf(form).EditBox();
  ClickCell(GridOf(form), 2, 2);
  for (const auto& [pasted, left] : cases) {
    box.clear();
    messages.clear();
    box.insert(pasted);
    test::Settle();
    EXPECT_EQ(box.text(), pasted.left(left));
    EXPECT_EQ(messages, std::vector<std::string>(left < pasted.size() ? 1 : 0, "Too Much Word."));
  }
}

TEST_F(NotificationSettingsTest, TheGatewayDecidesAboutTheApiId) {
  DataCenter.settings.SmsGateway = 1;
  DataCenter.settings.SmsApiId = "id";
  Form9& form = OpenSms();
  EXPECT_FALSE(Box(form, "api_id").isHidden());
  Box(form, "Account").setText(QStringLiteral("me"));
  test::Click(TestButton(form));
  test::Nth<QComboBox>(form).setCurrentIndex(0);
  EXPECT_TRUE(Box(form, "api_id").isHidden());
  test::Click(TestButton(form));
  EXPECT_EQ(Started("SMSTO.exe").at(0).rest, "[1][me][][][Send Test OK][id][T][0]");
  EXPECT_EQ(Started("SMSTO.exe").at(1).rest, "[0][me][][][Send Test OK][][T][0]");
  ClickOk(form);
  EXPECT_EQ(DataCenter.settings.SmsGateway, 0);
  EXPECT_EQ(DataCenter.settings.SmsApiId, "id");
}

}  // namespace
}  // namespace varek

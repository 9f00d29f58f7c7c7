// The windows of the e-mail and SMS settings through their controls: the grid and its edit box, the
// limits of a text message, what a test sends and what is saved.
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
  for (const char* expected : {"", "YES"}) {
    ClickCell(grid, 4, 1);
    EXPECT_EQ(CellText(grid, 4, 1), expected);
  }
  test::Key(grid, Qt::Key_Return);
  EXPECT_EQ(CellText(grid, 4, 1), "");
  EXPECT_TRUE(MailSettings().IsLoaded());
}

TEST_F(NotificationSettingsTest, TheEditBoxWritesToTheCellOnWhichItWasOpened) {
  Form5& form = OpenMail();
  EventGrid& grid = GridOf(form);
  QLineEdit& box = *grid.EditBox();
  const auto edit = [&](int end) {
    ClickCell(grid, 3, 2);
    EXPECT_FALSE(box.isHidden());
    box.setText(QStringLiteral("typed"));
    test::Key(box, end);
    EXPECT_TRUE(box.isHidden());
    EXPECT_TRUE(MailSettings().IsLoaded());
    return CellText(grid, 3, 2);
  };
  EXPECT_EQ(edit(Qt::Key_Escape), "four");
  EXPECT_EQ(edit(Qt::Key_Return), "typed");

  ClickCell(grid, 3, 2);
  EXPECT_EQ(box.pos(), grid.visualItemRect(grid.item(3, 2)).topLeft() + QPoint(2, 2));
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
  const auto pasteEverywhere = [this](QWidget& form) {
    ClickCell(GridOf(form), 3, 2);
    for (QLineEdit* box : form.findChildren<QLineEdit*>()) {
      box->selectAll();
      box->paste();
    }
    ClickOk(form);
    EXPECT_EQ(std::ranges::count(Config(), '\n'), 53);
  };
  pasteEverywhere(OpenMail());
  pasteEverywhere(OpenSms());
  ReadConfig();
  for (const auto setting :
       {&Settings::MailServer, &Settings::MailSenderName, &Settings::MailSenderAddress,
        &Settings::MailRecipientName, &Settings::MailRecipientAddress, &Settings::MailSubject,
        &Settings::SmsAccount, &Settings::SmsPassword, &Settings::SmsNumber, &Settings::SmsApiId})
    EXPECT_EQ(DataCenter.settings.*setting, "one  two three ");
  EXPECT_EQ(DataCenter.settings.MailEventText[3], "one  two three ");
  EXPECT_EQ(DataCenter.settings.SmsEventText[3], "one  two three ");
}

TEST_F(NotificationSettingsTest, WithoutALoadTheOverloadIsHiddenAndTheEditBoxFollowsAScroll) {
  DataCenter.HasLoad = kClear;
  Form5& form = OpenMail();
  EventGrid& grid = GridOf(form);
  EXPECT_EQ(grid.rowHeight(9), 0);
  EXPECT_FALSE(grid.isRowHidden(8));
  form.resize(form.minimumSize());
  test::Settle();
  ClickCell(grid, 3, 2);
  const int before = grid.EditBox()->y();
  grid.verticalScrollBar()->setValue(2);
  EXPECT_LT(grid.EditBox()->y(), before);
  EXPECT_EQ(grid.EditBox()->y(), grid.visualItemRect(grid.item(3, 2)).y() + 2);
  ClickOk(form);
  EXPECT_EQ(DataCenter.settings.MailEventText[9], "overload");
}

TEST_F(NotificationSettingsTest, OnlyOkSaves) {
  for (const bool ok : {false, true}) {
    Form5& form = OpenMail();
    EXPECT_TRUE(DataCenter.FormOpen[Form5::kNumber]);
    Box(form, "Mail server").setText(QStringLiteral(" new ] server "));
    ClickCell(GridOf(form), 0, 1);
    ClickCell(GridOf(form), 3, 2);
    GridOf(form).EditBox()->clear();
    if (ok) {
      ClickOk(form);
    } else {
      test::Key(form, Qt::Key_Escape);
    }
    EXPECT_FALSE(MailSettings().IsLoaded());
    EXPECT_FALSE(DataCenter.FormOpen[Form5::kNumber]);
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
  const auto mails = Started("mailto.exe");
  ASSERT_EQ(mails.size(), 1U);
  EXPECT_EQ(mails[0].rest,
            "[Mail server][Sender name][Sender address][Recipient name][Recipient address][Subject]"
            "[TEST OK][T][0]");
  EXPECT_EQ(DataCenter.settings.MailServer, "mail.example");
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
      {narrow.repeated(161), 160},
      {wide.repeated(70), 70},
      {wide.repeated(71), 70},
      {narrow.repeated(100) + wide, 70},
      {QStringLiteral("\u00e9").repeated(160), 160},
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
  const auto sent = Started("SMSTO.exe");
  ASSERT_EQ(sent.size(), 2U);
  EXPECT_EQ(sent[0].rest, "[1][me][][][Send Test OK][id][T][0]");
  EXPECT_EQ(sent[1].rest, "[0][me][][][Send Test OK][][T][0]");
  EXPECT_EQ(DataCenter.settings.SmsGateway, 1);
  ClickOk(form);
  EXPECT_EQ(DataCenter.settings.SmsGateway, 0);
  EXPECT_EQ(DataCenter.settings.SmsApiId, "id");
}

}  // namespace
}  // namespace varek

// Boxes and dialogues stop the window that asked and no other. On a display of the test's own, with
// clicks that go the way of the machine's.
#include <gtest/gtest.h>

#include <QtTest>

#include <cstdio>
#include <fstream>

#include "app/windows.h"
#include "core/unit_commands.h"
#include "platform/desktop/message_box.h"
#include "records/shutdown/shutdown.h"
#include "records/shutdown/system_countdown.h"
#include "records/shutdown/ups_countdown.h"
#include "settings/system/system_settings.h"
#include "support/serial_line.h"
#include "support/windows.h"
#include "views/history/save_dialog.h"
#include "views/kit/windows/message_window.h"

namespace varek {
namespace {

/// Before the toolkit's application is made. The server ends with its only client.
struct OnDisplay {
  OnDisplay() {
    static const bool once = [] {
      FILE* server = popen("exec Xvfb -displayfd 1 -terminate -nolisten tcp 2>/dev/null", "r");
      char number[16] = "";
      setenv("DISPLAY", (":" + std::to_string(std::atoi(fgets(number, 16, server)))).c_str(), 1);
      return setenv("QT_QPA_PLATFORM", "xcb", 1) == 0;
    }();
    static_cast<void>(once);
  }
};

class BoxesTest : private OnDisplay, public test::WindowTest {
 protected:
  BoxesTest() {
    ConnectWindows();
    std::ofstream(Folder() + "/taken.csv") << "taken";
    Loadlanguage(1);
    DataCenter.readings.OutputVoltage = 220;
    platform::ReplaceMessageBox(nullptr);
    DressMessageBoxes([] { return LangText[texts::kOk]; });
    ShowSystemSettings();
  }

  static QWidget* Titled(size_t caption) {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->windowTitle().toStdString() == LangText[caption]) return widget;
    return nullptr;
  }

  static void Click(QWidget* frame, const QWidget* at) {
    QTest::mouseClick(frame->windowHandle(), Qt::LeftButton, {},
                      at->mapTo(frame, at->rect().center()));
  }

  static QDialog* OpenBox() {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (auto* box = qobject_cast<QDialog*>(widget); box && box->isVisible()) return box;
    return nullptr;
  }

  /// The mains fail now: one countdown is cancelled by its button, the other by Escape.
  static void CancelBothCountdowns() {
    StartSystemShutdown(5);
    StartUPSShutdown(9, kNoRestart);
    QWidget* system = Titled(texts::kComputerCountdownCaption);
    Click(system, system->findChild<QPushButton*>());
    EXPECT_TRUE(test::PumpUntil([] { return !SystemCountdown().IsLoaded(); }));
    QWidget* ups = Titled(texts::kUpsCountdownCaption);
    ups->activateWindow();
    EXPECT_TRUE(test::PumpUntil([&] { return ups->isActiveWindow(); }));
    QTest::keyClick(ups->windowHandle(), Qt::Key_Escape);
    EXPECT_TRUE(test::PumpUntil([] { return !UPSCountdown().IsLoaded(); }));
  }

  static QWidget* Settings() { return Titled(texts::kSettingsCaption); }
};

TEST_F(BoxesTest, EachKindLeavesBothCountdownsInReachAndGoesWithItsWindow) {
  const SaveQuestion question{"save", Folder(), "taken.csv", "CSV (*.csv)|*.csv"};
  const auto forbidden = [](auto&&...) { FAIL() << "nobody has answered"; };
  const std::pair<const char*, std::function<void()>> kKinds[] = {
      {"list", [&] { Settings()->findChild<QComboBox*>()->showPopup(); }},
      {"box", [&] { platform::Tell(Settings(), {"text"}, forbidden); }},
      {"save dialogue", [&] { AskSaveName(*Settings(), question, forbidden); }},
      {"question of the dialogue", [&] {
         AskSaveName(*Settings(), question, forbidden);
         auto* dialogue = Settings()->findChild<QFileDialog*>();
         QMetaObject::invokeMethod(dialogue, "accept");
       }}};
  for (const auto& [name, open] : kKinds) {
    SCOPED_TRACE(name);
    ShowSystemSettings();
    bool done = false;
    QTimer::singleShot(500, [&] {
      CancelBothCountdowns();
      EXPECT_EQ(OpenBox() != nullptr, kKinds[0].first != name);
      UnloadForm(14);
      done = true;
    });
    open();
    EXPECT_TRUE(test::PumpUntil([&] { return done && !OpenBox(); }));
  }
}

TEST_F(BoxesTest, ABoxStopsItsWindowAndSaysWhenItIsClosed) {
  int closed = 0;
  platform::Tell(Settings(), {"<b>a long text</b>"}, [&] { ++closed; });
  QDialog* box = OpenBox();
  ASSERT_TRUE(box);
  EXPECT_EQ(box->parentWidget(), Settings());
  EXPECT_TRUE(test::PumpUntil([&] { return Settings()->windowHandle()->isExposed(); }));
  Click(Settings(), Settings()->findChild<QCheckBox*>());
  auto* button = box->findChild<QPushButton*>();
  EXPECT_EQ(button->text(), QStringLiteral("確定"));
  EXPECT_EQ(closed, 0);
  Click(box, button);
  EXPECT_EQ(closed, 1);

  QTimer::singleShot(200, [&] {
    CancelBothCountdowns();
    OpenBox()->close();
    ++closed;
  });
  platform::MessageBox("Init Database Error!");
  EXPECT_EQ(closed, 2) << "it waits for the person";
}

}  // namespace
}  // namespace varek

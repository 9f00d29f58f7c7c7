// Both countdowns as a person meets them: on the screen beside each other, and ended by the button
// or by Escape, and by nothing else.
#include <gtest/gtest.h>

#include <filesystem>
#include <utility>

#include "core/link_record.h"
#include "core/unit_commands.h"
#include "records/shutdown/shutdown.h"
#include "support/windows.h"

namespace varek {
namespace {

using test::OpenWindows, test::Saying;

class CountdownTest : public test::WindowTest {
 protected:
  /// Both run, and a minute has gone.
  CountdownTest() {
    DataCenter.readings.OutputVoltage = 220;
    StartSystemShutdown(5);
    StartUPSShutdown(9, kNoRestart);
    clock.Advance(60'000);
    test::Settle();
  }

  static QWidget* Titled(const char* caption) {
    for (QWidget* window : OpenWindows())
      if (window->windowTitle() == QString::fromLatin1(caption)) return window;
    return nullptr;
  }
};

TEST_F(CountdownTest, TheButtonAndEscapeEndTheirOwnAlone) {
  test::Click(Saying<QPushButton>(*Titled("Computer shutdown"), "Cancel"));
  EXPECT_FALSE(Titled("Computer shutdown"));
  ASSERT_TRUE(Titled("UPS shutdown"));
  EXPECT_NO_THROW(Saying(*Titled("UPS shutdown"), "08:00"));
  test::Key(test::FocusOf(*Titled("UPS shutdown")), Qt::Key_Escape);
  EXPECT_TRUE(OpenWindows().isEmpty());
  EXPECT_EQ(std::exchange(Link.PendingCommand, ""), "C");
  clock.Advance(600'000);
  EXPECT_EQ(Link.PendingCommand, "");
  EXPECT_TRUE(started.empty());
}

TEST_F(CountdownTest, TheyStandApartAndDoNotCloseEvenWithoutPictures) {
  for (const bool pictures : {true, false}) {
    ASSERT_EQ(OpenWindows().size(), 2);
    QWidget& one = *OpenWindows()[0];
    QWidget& other = *OpenWindows()[1];
    EXPECT_FALSE(one.frameGeometry().intersects(other.frameGeometry()));
    EXPECT_FALSE(one.close() || other.close());
    if (!pictures) return;
    CancelShutdowns();
    test::Settle();
    std::filesystem::remove(Folder() + "/image");
    StartSystemShutdown(5);
    StartUPSShutdown(9, kNoRestart);
  }
}

}  // namespace
}  // namespace varek

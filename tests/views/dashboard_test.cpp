// The dashboard's window: its life, and what its parts do when they are used.
#include "views/dashboard/dashboard.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QStackedWidget>
#include <filesystem>

#include "app/windows.h"
#include "core/debug_lines.h"
#include "core/link_record.h"
#include "settings/about/version_window.h"
#include "support/windows.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/controls/picture_view.h"

namespace varek {
namespace {

using test::Click, test::Saying;

class DashboardTest : public test::WindowTest {
 protected:
  DashboardTest() {
    ConnectWindows();
    DataCenter.IsConnect = kSet;
    DataCenter.identity.UPSVersion = std::string("V1.0\r\0", 6);  // as it comes over USB
    DataCenter.settings.UseCelsius = kSet;
  }

  static Form1& Open() {
    ShowDashboard();
    test::Settle();
    return Dashboard().Get();
  }

  static QWidget& InstrumentView(Form1& form) {
    return *test::Nth<QStackedWidget>(form).widget(0)->findChild<QWidget*>();
  }
};

TEST_F(DashboardTest, MovesItsNeedlesWhileItIsOpen) {
  Form1& form = Open();
  const QWidget& wayOfWorking = test::Nth<PictureView>(form, 1 + kWayOfWorkingLamp);
  const QImage still = InstrumentView(form).grab().toImage();
  clock.Advance(149);
  EXPECT_EQ(InstrumentView(form).grab().toImage(), still);
  clock.Advance(301);
  EXPECT_NE(InstrumentView(form).grab().toImage(), still);
  EXPECT_NO_THROW(Saying<QLabel>(form, "V1.0"));
  EXPECT_FALSE(wayOfWorking.isHidden());
  DataCenter.flags.Utility = kSet;
  clock.Advance(1000);
  EXPECT_TRUE(wayOfWorking.isHidden());
}

TEST_F(DashboardTest, ShowsTheNewestLinesLastAndSelected) {
  AddEventLine("before");
  const auto& lines = test::Nth<QComboBox>(Open());
  EXPECT_TRUE(lines.currentText().endsWith(QStringLiteral("  before")));
  AddEventLine("after");
  EXPECT_TRUE(lines.currentText().endsWith(QStringLiteral("  after")));
}

TEST_F(DashboardTest, ItsButtonsActAndItsMenuOpensTheWindows) {
  const std::pair<const char*, size_t> cases[] = {
      {"Language", 7},     {"System settings", 14}, {"UPS schedule", 4},
      {"Event log", 6},    {"Data history", 2},     {"Oscilloscope", 3},
      {"SMS settings", 9}, {"E-mail settings", 5},  {"Web login log", 15}};
  const std::pair<const char*, const char*> commands[] = {{"10-second battery test", "T"},
                                                          {"Battery test until low", "TL"},
                                                          {"Cancel battery test", "CT"},
                                                          {"Cancel shutdown", "C"}};
  Form1& form = Open();
  DataCenter.readings.OutputVoltage = 220;
  Click(Saying<PictureButton>(form, "Shut down computer"));
  EXPECT_TRUE(DataCenter.FormOpen[10]);
  for (const auto& [button, command] : commands) {
    Click(Saying<PictureButton>(form, button));
    EXPECT_EQ(Link.PendingCommand, command);
  }
  EXPECT_FALSE(DataCenter.FormOpen[10]);
  for (const auto& [item, opened] : cases) {
    Click(Saying(form, item));
    EXPECT_TRUE(DataCenter.FormOpen[opened]) << item;
    UnloadForm(static_cast<int>(opened));
  }
}

/// At every size the panel shows whole: unscaled in its place, or shrunk.
TEST_F(DashboardTest, NeverCutsThePanel) {
  Form1& form = Open();
  for (const int width : {620, 950, 1280, 1500}) {
    for (int height = 470; height <= 1000; height += 53) {
      form.resize(width, height);
      test::Settle();
      const QSize picture = InstrumentView(form).size();
      const SizeClass& sizeClass = ChooseSizeClass(form.Client()->width());
      const double fit = FitScale(picture.width(), picture.height(), sizeClass);
      ASSERT_GE(picture.width() + 1.0, sizeClass.designWidth * fit) << width << " x " << height;
      ASSERT_GE(picture.height() + 1.0, sizeClass.designHeight * fit) << width << " x " << height;
    }
  }
}

/// The last picture grows away to the right of a pointer that comes to it.
TEST_F(DashboardTest, AboutIsClickedInItsWholeWidth) {
  QWidget& client = *Open().Client();
  QWidget& about = Saying(client, "About");
  const QRect resting = about.geometry();
  for (const int x : {resting.left(), resting.center().x(), resting.right()}) {
    const QPoint at(x, resting.center().y());
    for (int ticks = 0; ticks < 2; ++ticks) {
      QWidget& under = *client.childAt(at);
      test::Hover(under, under.mapFromParent(at));
      clock.Advance(3000);
    }
    Click(*client.childAt(at), client.childAt(at)->mapFromParent(at));
    EXPECT_TRUE(VersionWindow().IsLoaded()) << x - resting.left();
    UnloadForm(16);
    test::Leave(about);
    clock.Advance(3000);
  }
}

TEST_F(DashboardTest, AMissingPictureIsToldAndOpensNothing) {
  const std::string image = CopyPictures();
  std::filesystem::remove(image + "/EventPic3.jpg");
  Click(Saying(Open(), "Event log"));
  EXPECT_EQ(messages, std::vector{"File not found: " + image + "/EventPic3.jpg"});
  EXPECT_FALSE(DataCenter.FormOpen[6]);
}

}  // namespace
}  // namespace varek

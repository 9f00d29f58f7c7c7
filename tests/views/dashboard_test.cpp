// The dashboard's window: its life, and what its parts do when they are used.
#include "views/dashboard/dashboard.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "app/windows.h"
#include "core/link_record.h"
#include "platform/errors/runtime_error.h"
#include "records/events.h"
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
};

TEST_F(DashboardTest, MovesItsNeedlesWhileItIsOpen) {
  Form1& form = Open();
  DataCenter.readings.InputVoltage = 150;
  clock.Advance(150);
  EXPECT_NEAR(form.Panel().NeedlePosition(kInputDial), 150, 1e-9);
  EXPECT_NO_THROW(Saying<QLabel>(form, "V1.0"));
  EXPECT_FALSE(form.Lamp(4)->isHidden());
  DataCenter.flags.Utility = kSet;
  clock.Advance(1000);
  EXPECT_TRUE(form.Lamp(4)->isHidden());
  EXPECT_FALSE(form.Lamp(3)->isHidden());
  form.close();
  test::Settle();
  EXPECT_FALSE(Dashboard().IsLoaded());
}

TEST_F(DashboardTest, ShowsTheNewestLinesLastAndSelected) {
  AddEventLine("before");
  Form1& form = Open();
  EXPECT_TRUE(form.SelectedLine().ends_with("  before"));
  AddEventLine("after");
  EXPECT_TRUE(form.SelectedLine().ends_with("  after"));
}

TEST_F(DashboardTest, ItsButtonsActAndItsMenuOpensTheWindows) {
  const std::pair<const char*, size_t> cases[] = {
      {"Language", 7},     {"System settings", 14}, {"UPS schedule", 4},
      {"Event log", 6},    {"Data history", 2},     {"Oscilloscope", 3},
      {"SMS settings", 9}, {"E-mail settings", 5},  {"Web login log", 15}};
  Form1& form = Open();
  Click(Saying<PictureButton>(form, "Battery test until low"));
  EXPECT_EQ(Link.PendingCommand, "TL");
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
      const auto& picture = form.Panel().Picture();
      const SizeClass& sizeClass = ChooseSizeClass(form.Client()->width());
      const double fit = FitScale(picture.Width(), picture.Height(), sizeClass);
      ASSERT_GE(picture.Width() + 1.0, sizeClass.designWidth * fit) << width << " x " << height;
      ASSERT_GE(picture.Height() + 1.0, sizeClass.designHeight * fit) << width << " x " << height;
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
    QWidget& under = *client.childAt(at);
    Click(under, under.mapFromParent(at));
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
  Dashboard().Unload();
  std::filesystem::remove_all(image);
  EXPECT_THROW(Dashboard().Get(), platform::RuntimeError);
  EXPECT_FALSE(Dashboard().IsLoaded());
}

}  // namespace
}  // namespace varek

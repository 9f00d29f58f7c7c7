// The dashboard's window: its life, its layout, and what its parts do when they are used.
#include "views/dashboard.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <algorithm>
#include <filesystem>

#include "core/data_center.h"
#include "core/link_record.h"
#include "platform/events.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"
#include "records/events.h"
#include "settings/language.h"
#include "settings/version_window.h"
#include "support/monitor_fixture.h"
#include "views/kit/picture_button.h"
#include "views/kit/picture_view.h"
#include "views/search_box.h"

namespace varek {
namespace {

class DashboardTest : public test::MonitorTest {
 protected:
  DashboardTest() {
    test::InstallPictures(Folder());
    Loadlanguage(0);
    DataCenter.IsConnect = kSet;
    DataCenter.UPSVersion = std::string("V1.0\r\0", 6);  // as it comes over USB
    DataCenter.UseCelsius = kSet;
  }

  static Form1& Open() {
    ShowDashboard();
    platform::DoEvents();
    return Dashboard().Get();
  }

  static void Mouse(QWidget* widget, QEvent::Type type, QPointF at) {
    const auto held = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget->mapToGlobal(at), held, held, {});
    QApplication::sendEvent(widget, &event);
  }

  static void Click(QWidget* widget, QPointF at) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
      Mouse(widget, type, at);
    platform::DoEvents();
  }
  static void Click(QWidget* widget) { Click(widget, widget->rect().center()); }
};

TEST_F(DashboardTest, MovesItsNeedlesWhileItIsOpen) {
  Form1& form = Open();
  EXPECT_TRUE(DataCenter.FormOpen[Form1::kNumber]);
  DataCenter.InputVoltage = 150;
  clock.Advance(150);
  EXPECT_NEAR(form.Panel().NeedlePosition(kInputDial), 150, 1e-9);
  clock.Advance(1000);
  EXPECT_GT(form.Panel().NeedlePosition(kInputDial), 120 + 0.7 * 150);
  const auto labels = form.findChildren<QLabel*>();
  const auto isVersion = [](const QLabel* label) { return label->text() == u"V1.0"; };
  EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), isVersion));

  EXPECT_FALSE(form.Lamp(4)->isHidden());
  DataCenter.Utility = kSet;
  clock.Advance(1000);
  EXPECT_TRUE(form.Lamp(4)->isHidden());
  EXPECT_FALSE(form.Lamp(3)->isHidden());

  form.close();
  platform::DoEvents();
  EXPECT_FALSE(Dashboard().IsLoaded());
  EXPECT_FALSE(DataCenter.FormOpen[Form1::kNumber]);
}

TEST_F(DashboardTest, ShowsTheNewestLinesLastAndSelected) {
  ConnectDashboard();
  AddEventLine("before");
  Form1& form = Open();
  EXPECT_TRUE(form.SelectedLine().ends_with("  before"));
  AddEventLine("after");
  EXPECT_TRUE(form.SelectedLine().ends_with("  after"));
}

TEST_F(DashboardTest, ItsButtonsActAndItsTextsFollowTheLanguage) {
  Form1& form = Open();
  Click(form.Button(4));
  EXPECT_EQ(Link.PendingCommand, "TL");
  const QString english = form.Button(4)->Text();
  Loadlanguage(2);
  language(Form1::kNumber);
  EXPECT_EQ(form.Button(4)->Text().toStdString(), LangText[2]);
  EXPECT_NE(form.Button(4)->Text(), english);
  EXPECT_EQ(form.windowTitle().toStdString(), LangText[10]);
}

/// At every size the panel shows whole: unscaled in its place, or shrunk.
TEST_F(DashboardTest, NeverCutsThePanel) {
  Form1& form = Open();
  for (int width = 620; width <= 1500; width += 110) {
    for (int height = 470; height <= 1000; height += 15) {
      form.resize(width, height);
      platform::DoEvents();
      const auto& picture = form.Panel().Picture();
      const SizeClass& sizeClass = ChooseSizeClass(form.Client()->width());
      const float fit = FitScale(picture.Width(), picture.Height(), sizeClass);
      ASSERT_GE(picture.Width() + 1.0, sizeClass.designWidth * fit) << width << " x " << height;
      ASSERT_GE(picture.Height() + 1.0, sizeClass.designHeight * fit) << width << " x " << height;
    }
  }
}

TEST_F(DashboardTest, ItsMenuOpensTheWindows) {
  const std::pair<int, int> cases[] = {{0, 7}, {1, 14}, {2, 4}, {3, 6}, {4, 2},
                                       {5, 3}, {6, 9},  {7, 5}, {8, 15}};  // item, form
  Form1& form = Open();
  for (const auto& [item, opened] : cases) {
    Click(form.MenuItem(item));
    EXPECT_TRUE(DataCenter.FormOpen[static_cast<size_t>(opened)]) << item;
    UnloadForm(opened);
  }
}

/// The last picture grows away to the right of a pointer that comes to it.
TEST_F(DashboardTest, AboutIsClickedInItsWholeWidth) {
  Form1& form = Open();
  QWidget& client = *form.Client();
  const QRect resting = form.MenuItem(9)->geometry();
  for (int x = resting.left(); x <= resting.right(); ++x) {
    const QPoint at(x, resting.center().y());
    const auto under = [&] { return client.childAt(at); };
    const auto inside = [&] { return QPointF(under()->mapFromParent(at)); };
    Mouse(form.MenuItem(9), QEvent::MouseMove, form.MenuItem(9)->mapFromParent(at));
    clock.Advance(3000);
    Mouse(under(), QEvent::MouseMove, inside());
    clock.Advance(3000);
    Click(under(), inside());
    EXPECT_TRUE(VersionWindow().IsLoaded()) << x - resting.left();
    UnloadForm(16);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(form.MenuItem(9), &leave);
    clock.Advance(3000);
  }
}

TEST_F(DashboardTest, AMissingPictureOfAViewerIsTold) {
  const std::string image = Folder() + "/image";
  const auto real = std::filesystem::read_symlink(image);
  std::filesystem::remove(image);
  std::filesystem::copy(real, image);
  std::filesystem::remove(image + "/EventPic3.jpg");
  Click(Open().MenuItem(3));
  platform::DoEvents();
  EXPECT_EQ(messages, std::vector{"File not found: " + image + "/EventPic3.jpg"});
  EXPECT_FALSE(DataCenter.FormOpen[6]);
}

TEST_F(DashboardTest, ASearchShowsHowFarItIs) {
  SearchBox& box = Open().Search();
  box.Open();
  box.SetProgress(50);
  const QImage seen = box.grab().toImage();
  EXPECT_GT(seen.pixelColor(27 + 100, 36).lightness(), seen.pixelColor(27 + 200, 36).lightness());
}

TEST_F(DashboardTest, AMissingPictureIsAnError) {
  platform::SetProgramFolder("/nonexistent");
  EXPECT_THROW(Dashboard().Get(), platform::RuntimeError);
  EXPECT_FALSE(Dashboard().IsLoaded());
  EXPECT_FALSE(DataCenter.FormOpen[Form1::kNumber]);
}

}  // namespace
}  // namespace varek

// The machinery that the views share: panels that stick, layouts that scale, the calendar, picture
// buttons and the window itself.
#include <gtest/gtest.h>

#include <QApplication>
#include <QInputDevice>
#include <QKeyEvent>
#include <QMouseEvent>
#include <chrono>
#include <filesystem>
#include <fstream>

#include "core/error_list.h"
#include "core/forms.h"
#include "platform/calendar.h"
#include "platform/events.h"
#include "platform/runtime_error.h"
#include "records/countdown_window.h"
#include "settings/language.h"
#include "support/monitor_fixture.h"
#include "views/kit/calendar_page.h"
#include "views/kit/colors.h"
#include "views/kit/design_layout.h"
#include "views/kit/month_calendar.h"
#include "views/kit/picture_button.h"
#include "views/kit/progress_bar.h"
#include "views/kit/sticky_panels.h"
#include "views/kit/view_window.h"
#include "views/kit/window_places.h"

namespace varek {
namespace {

/// Panel 0 is dragged, panel 1 stands in the upper middle of a client area of 400 x 300.
StickyPanels TwoPanels(WhenResized rule = WhenResized::FollowEdges) {
  StickyPanels panels({{100, 100, 50, 40}, {200, 20, 60, 100}}, rule);
  panels.SetClientSize(400, 300);
  panels.Grab(7, 3);
  return panels;
}

void DragTo(StickyPanels& panels, int left, int top) {
  panels.Drag(0, left - panels.At(0).left + 7, top - panels.At(0).top + 3);
}

TEST(StickyPanels, SnapWithinNinePixelsToPanelsBeforeEdges) {
  struct Case {
    int left, top;            ///< where the pointer would put it
    int foundLeft, foundTop;  ///< where it goes
  };
  const Case cases[] = {
      {341, 200, 350, 200}, {340, 200, 340, 200}, {359, 200, 350, 200},
      {360, 200, 360, 200}, {9, 200, 0, 200},     {10, 200, 10, 200},
      {-9, 200, 0, 200},    {70, 251, 70, 260},   {70, 250, 70, 250},
      {70, 9, 70, 0},       {70, 10, 70, 10},     {141, 60, 150, 60},  // beside the other panel
      {140, 60, 140, 60},   {269, 60, 260, 60},   {270, 60, 270, 60},
      {141, 150, 141, 150}, {210, 129, 210, 120},  // below it, where the two overlap in width
      {280, 129, 280, 129}, {210, 130, 210, 130}};
  for (const Case& c : cases) {
    StickyPanels panels = TwoPanels();
    panels.At(0).top = c.top;  // The overlap in height is asked where the panel stands.
    DragTo(panels, c.left, c.top);
    EXPECT_EQ(panels.At(0).left, c.foundLeft) << c.left << "," << c.top;
    EXPECT_EQ(panels.At(0).top, c.foundTop) << c.left << "," << c.top;
  }

  StickyPanels panels = TwoPanels();
  panels.At(1).left = 55;  // Panel 0 beside it stands at 5, near the window's edge as well.
  panels.At(0).top = 60;
  DragTo(panels, 2, 60);
  EXPECT_EQ(panels.At(0).left, 5);
  panels.At(1).visible = false;
  DragTo(panels, 2, 60);
  EXPECT_EQ(panels.At(0).left, 0);

  StickyPanels four({{0, 0, 50, 50}, {108, 0, 9, 50}, {104, 0, 9, 50}, {200, 0, 9, 50}},
                    WhenResized::FollowEdges);
  four.SetClientSize(400, 300);
  four.Drag(0, 56, 0);
  EXPECT_EQ(four.At(0).left, 58);  // The first in order, though the second is nearer.
}

TEST(StickyPanels, StuckOnesFollowTheirEdgesWhereTheViewWantsIt) {
  struct Case {
    WhenResized rule;
    int dragLeft, dragTop;
    int left, top;  ///< once the window has grown to 500 x 400
  };
  const Case cases[] = {{WhenResized::FollowEdges, 341, 251, 450, 360},
                        {WhenResized::FollowEdges, 340, 250, 340, 250},
                        {WhenResized::StayInside, 341, 251, 350, 260},
                        {WhenResized::FollowEdges, 9, 9, 0, 0},
                        {WhenResized::FollowEdges, 70, 251, 70, 360}};
  for (const Case& c : cases) {
    StickyPanels panels = TwoPanels(c.rule);
    DragTo(panels, c.dragLeft, c.dragTop);
    panels.SetClientSize(500, 400);
    panels.ReWindow();
    EXPECT_EQ(panels.At(0).left, c.left) << c.dragLeft << "," << c.dragTop;
    EXPECT_EQ(panels.At(0).top, c.top) << c.dragLeft << "," << c.dragTop;
  }

  StickyPanels panels = TwoPanels();
  DragTo(panels, 345, 255);
  EXPECT_TRUE(panels.IsStuckRight(0) && panels.IsStuckBottom(0));
  DragTo(panels, 300, 255);
  EXPECT_FALSE(panels.IsStuckRight(0));
  EXPECT_TRUE(panels.IsStuckBottom(0));
  panels.SetClientSize(320, 30);  // Too low for both: they end at the upper edge.
  panels.ReWindow();
  EXPECT_EQ(panels.At(0).left, 270);
  EXPECT_EQ(panels.At(1).left, 200);
  EXPECT_EQ(panels.At(1).top, 0);
}

TEST(Calendar, MonthsBeginAndEndWhereTheyDo) {
  using namespace std::chrono;
  for (int y = 1899; y <= 2101; ++y) {
    for (int m = 1; m <= 12; ++m) {
      const auto last = year(y) / m / std::chrono::last;
      const auto start = platform::Getfirstday(y, m);
      EXPECT_EQ(start.weekday, int(weekday(sys_days(year(y) / m / 1)).c_encoding())) << y << m;
      EXPECT_EQ(start.days, int(unsigned(last.day()))) << y << m;
      EXPECT_EQ(DayOfCell(y, m, CellOfDay(y, m, start.days)), start.days);
      EXPECT_EQ(DayOfCell(y, m, CellOfDay(y, m, 1) - 1), 0);
    }
  }
  EXPECT_EQ(CellOfDay(2026, 8, 31), 7 + 6 + 30);  // begins on a Saturday and needs all six weeks
  EXPECT_EQ(DayOfCell(2026, 8, 7 + 6 + 31), 0);
  EXPECT_EQ(CellColor(0), (platform::Color{200, 243, 200}));
  EXPECT_EQ(CellColor(48), (platform::Color{248, 243, 200}));
}

TEST(ProgressBar, ShowsTheLeftPartOfItsPicture) {
  constexpr platform::Color kOutline{255, 0, 0}, kBar{0, 255, 0}, kBare{0, 0, 0};
  platform::Surface source(101, 11);
  source.Clear(kOutline);
  source.Fill({1, 1, 100, 10}, kBar);
  const std::pair<double, int> cases[] = {{0, 0}, {0.1, 0}, {50, 100}, {100, 200}};
  for (const auto& [percent, covered] : cases) {
    platform::Surface target(200, 20);
    linepsent(0, 0, percent, target, source);
    for (int x = 0; x < 200; ++x)
      ASSERT_EQ(target.Pixel(x, 19), x < covered ? kBar : kBare) << percent << " " << x;
  }
}

TEST(DesignLayout, ScalesEachValueToWholePixels) {
  EXPECT_EQ(ScaleRect({10, 20, 30, 40}, {100, 200}, {150, 300}), QRect(15, 30, 45, 60));
  EXPECT_EQ(ScaleRect({1, 3, 5, 7}, {2, 2}, {1, 1}), QRect(0, 2, 2, 4));  // a half to even
  EXPECT_EQ(ScaleRect({1, 3, 5, 7}, {0, 2}, {9, 9}), QRect(1, 3, 5, 7));
}

TEST(WindowFrame, IsTakenByItsEdgesAndNeverBelowItsLeast) {
  struct Case {
    QPoint at;
    Qt::Edges edges;
    QRect dragged;  ///< by (-30, 400), from a window of 200 x 150 at (100, 100)
  };
  constexpr auto L = Qt::LeftEdge, R = Qt::RightEdge, T = Qt::TopEdge, B = Qt::BottomEdge;
  const Case cases[] = {
      {{4, 75}, L, {70, 100, 230, 150}},         {{195, 75}, R, {100, 100, 180, 150}},
      {{100, 145}, B, {100, 100, 200, 550}},     {{15, 149}, L | B, {70, 100, 230, 550}},
      {{199, 140}, R | B, {100, 100, 180, 550}}, {{0, 15}, L | T, {70, 130, 230, 120}},
      {{199, 0}, R | T, {100, 130, 180, 120}},   {{5, 75}, {}, {100, 100, 200, 150}},
      {{100, 0}, {}, {100, 100, 200, 150}}};
  for (const Case& c : cases) {
    EXPECT_EQ(EdgesAt(c.at, {200, 150}), c.edges) << c.at.x() << "," << c.at.y();
    EXPECT_EQ(Resized({100, 100, 200, 150}, c.edges, {-30, 400}, {180, 120}), c.dragged)
        << c.at.x() << "," << c.at.y();
  }
}

class Probe final : public ViewWindow {
 public:
  Probe() : ViewWindow(2, {300, 200}, {100, 80}) { capturedClient = Client()->size(); }
  void ApplyLanguage() { ViewWindow::ApplyLanguage(); }
  void Form_Resize() override {
    resizedTo = Client()->size();
    throw platform::RuntimeError(5, "a view's mistake");
  }
  QSize capturedClient;
  QSize resizedTo;
};

class KitTest : public test::MonitorTest {
 protected:
  KitTest() {
    test::InstallPictures(Folder());
    Loadlanguage(0);
  }

  static void Mouse(QWidget& widget, QEvent::Type type, QPointF at) {
    const bool release = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton,
                      release ? Qt::NoButton : Qt::LeftButton, {});
    QCoreApplication::sendEvent(&widget, &event);
  }
  static void Key(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = {}) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, modifiers);
      QCoreApplication::sendEvent(&widget, &event);
    }
  }

  FormSlot<Probe> slot{2};
};

TEST_F(KitTest, PictureButtonActsWhenReleasedOverItself) {
  int acts = 0;
  PictureButton button(nullptr, QStringLiteral("button"), "form1 Picture1_Click", [&acts] {
    ++acts;
    throw platform::RuntimeError(5, "the action's mistake");
  });
  struct Case {
    QEvent::Type type;
    QPointF at;
    ButtonPicture showing;
    int acts;
  };
  const QPointF over(10, 10), beside(10, -1);
  const Case cases[] = {{QEvent::MouseMove, over, ButtonPicture::Hover, 0},
                        {QEvent::MouseButtonPress, over, ButtonPicture::Pressed, 0},
                        {QEvent::MouseButtonRelease, over, ButtonPicture::Normal, 1},
                        {QEvent::MouseButtonPress, over, ButtonPicture::Pressed, 1},
                        {QEvent::MouseMove, beside, ButtonPicture::Normal, 1},
                        {QEvent::MouseButtonRelease, beside, ButtonPicture::Normal, 1},
                        {QEvent::MouseMove, over, ButtonPicture::Hover, 1},
                        {QEvent::Leave, over, ButtonPicture::Normal, 1}};
  for (const Case& c : cases) {
    QEvent leave(QEvent::Leave);
    c.type == QEvent::Leave ? void(QCoreApplication::sendEvent(&button, &leave))
                            : Mouse(button, c.type, c.at);
    platform::DoEvents();
    EXPECT_EQ(button.Showing(), c.showing) << c.type;
    EXPECT_EQ(acts, c.acts) << c.type;
  }
  Key(button, Qt::Key_Space);
  Key(button, Qt::Key_Return);
  platform::DoEvents();
  EXPECT_EQ(acts, 3);
  EXPECT_EQ(Form13::List1().size(), 3U);
}

TEST_F(KitTest, WindowIsLaidOutMovedAndClosed) {
  Probe& window = slot.Get();
  EXPECT_EQ(window.capturedClient, QSize(300, 200));
  window.ShowAndRaise();
  platform::DoEvents();
  window.resize(410, 235);
  platform::DoEvents();
  EXPECT_EQ(window.resizedTo, QSize(400, 200));
  EXPECT_NE(Form13::List1().back().find("form2 Form_Resize"), std::string::npos);

  const QPoint before = window.pos();
  Mouse(window, QEvent::MouseButtonPress, {50, 10});
  Mouse(window, QEvent::MouseMove, {70, 40});
  Mouse(window, QEvent::MouseMove, {51, 12});  // The window has moved under the pointer.
  Mouse(window, QEvent::MouseButtonRelease, {50, 10});
  EXPECT_EQ(window.pos(), before + QPoint(21, 32));

  Key(window, Qt::Key_W);
  platform::DoEvents();
  EXPECT_TRUE(slot.IsLoaded());
  Key(window, Qt::Key_Escape);
  EXPECT_TRUE(slot.IsLoaded());  // A handler may still stand below the key.
  platform::DoEvents();
  EXPECT_FALSE(slot.IsLoaded());
  Key(slot.Get(), Qt::Key_W, Qt::ControlModifier);
  platform::DoEvents();
  EXPECT_FALSE(slot.IsLoaded());
}

TEST_F(KitTest, MissingPicturesStopViewsButNoCountdown) {
  const std::string image = Folder() + "/image";
  const std::filesystem::path real = std::filesystem::read_symlink(image);
  std::filesystem::remove(image);
  std::filesystem::copy(real, image);
  const auto error = [this] {
    try {
      slot.Get();
    } catch (const platform::RuntimeError& caught) {
      return caught.Number();
    }
    return 0;
  };
  std::ofstream(image + "/close1.jpg") << "no picture";
  EXPECT_EQ(error(), platform::errors::kInvalidPicture);
  std::filesystem::remove(image + "/frameleft.jpg");
  EXPECT_EQ(error(), platform::errors::kFileNotFound);

  CountdownWindow above(CountdownWindow::Place::Left, [] {});
  CountdownWindow below(CountdownWindow::Place::Right, [] {});
  above.Show();
  below.Show();
  platform::DoEvents();
  QWidgetList shown = QApplication::topLevelWidgets();
  shown.removeIf([](QWidget* widget) { return !widget->isVisible(); });
  ASSERT_EQ(shown.size(), 2);
  EXPECT_FALSE(shown[0]->frameGeometry().intersects(shown[1]->frameGeometry()));
  EXPECT_FALSE(shown[0]->close() || shown[1]->close());
}

TEST_F(KitTest, CalendarIsTurnedAndChosenFrom) {
  clock.SetNow({2026, 1, 31, 12, 0, 0});
  int chosen = 0;
  MonthCalendar calendar(nullptr, "form2 Picture11", [&] { chosen = calendar.Day(); });
  const auto expect = [&calendar](int year, int month, int day) {
    EXPECT_EQ(std::tuple(calendar.Year(), calendar.Month(), calendar.Day()),
              std::tuple(year, month, day));
  };
  expect(2026, 1, 31);
  const std::tuple<int, int, int, int> keys[] = {
      {Qt::Key_PageDown, 2026, 2, 28}, {Qt::Key_Down, 2026, 3, 7},
      {Qt::Key_Up, 2026, 2, 28},       {Qt::Key_Right, 2026, 3, 1},
      {Qt::Key_Left, 2026, 2, 28},     {Qt::Key_PageUp, 2026, 1, 28},
      {Qt::Key_PageUp, 2025, 12, 28},  {Qt::Key_PageDown, 2026, 1, 28}};
  for (const auto& [key, year, month, day] : keys) {
    Key(calendar, key);
    expect(year, month, day);
  }
  EXPECT_EQ(chosen, 0);
  const auto click = [&](int cell) {
    Mouse(calendar, QEvent::MouseButtonPress, calendar.CellRect(cell).center());
    platform::DoEvents();
  };
  click(CellOfDay(2026, 1, 15));
  EXPECT_EQ(chosen, 15);
  for (const int empty : {3, 7, 48}) click(empty);  // A head, and cells before and after the month.
  expect(2026, 1, 15);

  const QImage page = calendar.grab().toImage();
  const auto corner = [&](int cell) { return page.pixelColor(calendar.CellRect(cell).topLeft()); };
  EXPECT_EQ(corner(CellOfDay(2026, 1, 15)), ToQColor({0, 0, 255}));
  EXPECT_EQ(corner(CellOfDay(2026, 1, 16)), ToQColor(CellColor(CellOfDay(2026, 1, 16))));
}

/// Wherever the window stands that asks, even half outside.
TEST(WindowPlaces, ABoxKeepsOutOfTheOthersPlaces) {
  for (const QSize screen : {QSize(1280, 720), QSize(1366, 768), QSize(1920, 1080)}) {
    const QRect room({0, 0}, screen);
    const QSize countdown(340, 226);
    const QRect others[] = {{PlaceCountdown(room, countdown, Side::Left), countdown},
                            {PlaceCountdown(room, countdown, Side::Right), countdown},
                            NoticeCorner(room)};
    for (const QSize size : {QSize(260, 120), QSize(560, 440)})
      for (int x = -500; x < room.right(); x += 90)
        for (int y = -400; y < room.bottom(); y += 90) {
          const QRect box(PlaceBox(room, {x, y, 700, 500}, size), size);
          EXPECT_TRUE(room.contains(box)) << x << " " << y;
          for (const QRect& other : others) EXPECT_FALSE(box.intersects(other)) << x << " " << y;
        }
  }
}

}  // namespace
}  // namespace varek

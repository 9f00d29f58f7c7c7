// The machinery that the views share.
#include <gtest/gtest.h>

#include <fstream>

#include "platform/errors/runtime_error.h"
#include "support/windows.h"
#include "views/kit/calendar/calendar_page.h"
#include "views/kit/calendar/month_calendar.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/controls/progress_bar.h"
#include "views/kit/windows/sticky_panels.h"
#include "views/kit/windows/view_window.h"
#include "views/kit/windows/window_places.h"

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
  /// Where the pointer would put it, and where it goes.
  const std::tuple<int, int, int, int> cases[] = {
      {341, 200, 350, 200}, {340, 200, 340, 200}, {9, 200, 0, 200},     {10, 200, 10, 200},
      {70, 251, 70, 260},   {70, 250, 70, 250},   {70, 9, 70, 0},       {70, 10, 70, 10},
      {141, 60, 150, 60},   {140, 60, 140, 60},   {269, 60, 260, 60},   {270, 60, 270, 60},
      {141, 150, 141, 150}, {210, 129, 210, 120}, {280, 129, 280, 129}, {210, 130, 210, 130}};
  for (const auto& [left, top, foundLeft, foundTop] : cases) {
    StickyPanels panels = TwoPanels();
    panels.At(0).top = top;  // The overlap in height is asked where the panel stands.
    DragTo(panels, left, top);
    EXPECT_EQ(panels.At(0).left, foundLeft) << left << "," << top;
    EXPECT_EQ(panels.At(0).top, foundTop) << left << "," << top;
  }

  StickyPanels panels = TwoPanels();
  panels.At(1).left = 55;  // Panel 0 beside it stands at 5, near the window's edge as well.
  panels.At(0).top = 60;
  for (const bool visible : {true, false}) {
    panels.At(1).visible = visible;
    DragTo(panels, 2, 60);
    EXPECT_EQ(panels.At(0).left, visible ? 5 : 0);
  }
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
                        {WhenResized::StayInside, 70, 390, 70, 360},
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
  DragTo(panels, 300, 255);
  panels.SetClientSize(500, 400);
  panels.ReWindow();
  EXPECT_EQ(panels.At(0).left, 300);  // Dragged away from its edge.
  EXPECT_EQ(panels.At(0).top, 360);
  panels.SetClientSize(320, 30);  // Too low for both: they end at the upper edge.
  panels.ReWindow();
  EXPECT_EQ(panels.At(0).left, 270);
  EXPECT_EQ(panels.At(1).top, 0);
}

TEST(ProgressBar, ShowsTheLeftPartOfItsPicture) {
  constexpr platform::Color kBar{0, 255, 0}, kBare{0, 0, 0};
  platform::Surface source(101, 11);
  source.Fill({1, 1, 100, 10}, kBar);
  const std::pair<double, int> cases[] = {{0, 0}, {0.1, 0}, {50, 100}, {100, 200}};
  for (const auto& [percent, covered] : cases) {
    platform::Surface target(200, 20);
    linepsent(0, 0, percent, target, source);
    for (int x = 0; x < 200; ++x)
      ASSERT_EQ(target.Pixel(x, 19), x < covered ? kBar : kBare) << percent << " " << x;
  }
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
  Probe() : ViewWindow(2, {300, 200}, {100, 80}) {}
  void ApplyLanguage() { ViewWindow::ApplyLanguage(); }
  void Form_Resize() override {
    resizedTo = Client()->size();
    throw platform::RuntimeError(5, "a view's mistake");
  }
  QSize resizedTo;
};

class KitTest : public test::WindowTest {
 protected:
  FormSlot<Probe> slot{2};
};

TEST_F(KitTest, PictureButtonActsWhenReleasedOverItself) {
  int acts = 0;
  PictureButton button(nullptr, QStringLiteral("button"), "form1 Picture1_Click", [&acts] {
    ++acts;
    throw platform::RuntimeError(5, "the action's mistake");
  });
  const QPointF over(10, 10), beside(10, -1);
  test::Hover(button, over);
  EXPECT_EQ(button.Showing(), ButtonPicture::Hover);
  test::Mouse(button, QEvent::MouseButtonPress, over);
  EXPECT_EQ(button.Showing(), ButtonPicture::Pressed);
  test::Mouse(button, QEvent::MouseButtonRelease, beside);
  test::Settle();
  EXPECT_EQ(acts, 0);
  EXPECT_EQ(button.Showing(), ButtonPicture::Normal);
  test::Click(button, over);
  for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_A}) test::Key(button, key);
  EXPECT_EQ(acts, 3);
  EXPECT_EQ(Form13::List1().size(), 3U);
}

TEST_F(KitTest, WindowIsLaidOutMovedAndClosed) {
  Probe& window = slot.Get();
  window.ShowAndRaise();
  test::Settle();
  window.resize(410, 235);
  test::Settle();
  EXPECT_EQ(window.resizedTo, QSize(400, 200));
  EXPECT_NE(Form13::List1().back().find("form2 Form_Resize"), std::string::npos);

  const QPoint before = window.pos();
  test::Mouse(window, QEvent::MouseButtonPress, {50, 10});
  test::Mouse(window, QEvent::MouseMove, {70, 40});
  test::Mouse(window, QEvent::MouseMove, {51, 12});  // The window has moved under the pointer.
  EXPECT_EQ(window.pos(), before + QPoint(21, 32));

  test::Key(window, Qt::Key_W);
  EXPECT_TRUE(slot.IsLoaded());
  test::Key(window, Qt::Key_Escape);
  EXPECT_FALSE(slot.IsLoaded());
  test::Key(slot.Get(), Qt::Key_W, Qt::ControlModifier);
  EXPECT_FALSE(slot.IsLoaded());
}

TEST_F(KitTest, APictureThatIsMissingOrNoneStopsAView) {
  std::ofstream(CopyPictures() + "/close1.jpg") << "no picture";
  EXPECT_THROW(slot.Get(), platform::RuntimeError);
  EXPECT_FALSE(slot.IsLoaded());
}

TEST_F(KitTest, CalendarIsTurnedAndChosenFrom) {
  clock.SetNow({2026, 1, 31, 12, 0, 0});
  int chosen = 0;
  MonthCalendar calendar(nullptr, "form2 Picture11", [&] { chosen = calendar.Day(); });
  const auto shown = [&] { return std::tuple(calendar.Year(), calendar.Month(), calendar.Day()); };
  const std::tuple<int, int, int, int> keys[] = {
      {Qt::Key_PageDown, 2026, 2, 28}, {Qt::Key_Down, 2026, 3, 7},
      {Qt::Key_Up, 2026, 2, 28},       {Qt::Key_Right, 2026, 3, 1},
      {Qt::Key_Left, 2026, 2, 28},     {Qt::Key_PageUp, 2026, 1, 28},
      {Qt::Key_PageUp, 2025, 12, 28},  {Qt::Key_PageDown, 2026, 1, 28}};
  for (const auto& [key, year, month, day] : keys) {
    test::Key(calendar, key);
    EXPECT_EQ(shown(), std::tuple(year, month, day));
  }
  EXPECT_EQ(chosen, 0);
  const auto click = [&](int cell) { test::Click(calendar, calendar.CellRect(cell).center()); };
  click(CellOfDay(2026, 1, 15));
  EXPECT_EQ(chosen, 15);
  for (const int empty : {3, 7, 48}) click(empty);  // A head, and cells before and after the month.
  EXPECT_EQ(shown(), std::tuple(2026, 1, 15));
}

/// Wherever the window stands that asks, even half outside.
TEST(WindowPlaces, ABoxKeepsOutOfTheOthersPlaces) {
  const QSize countdown(340, 226);
  for (const QRect room : {QRect(0, 0, 1280, 720), QRect(0, 0, 1920, 1080)})
    for (const QSize size : {QSize(260, 120), QSize(560, 440)})
      for (int x = -500; x < room.right(); x += 90)
        for (int y = -400; y < room.bottom(); y += 90) {
          const QRect box(PlaceBox(room, {x, y, 700, 500}, size), size);
          EXPECT_TRUE(room.contains(box)) << x << " " << y;
          const QRect left(PlaceCountdown(room, countdown, Side::Left), countdown),
              right(PlaceCountdown(room, countdown, Side::Right), countdown);
          for (const QRect& other : {left, right, NoticeCorner(room)})
            EXPECT_FALSE(box.intersects(other)) << x << " " << y;
        }
}

}  // namespace
}  // namespace varek

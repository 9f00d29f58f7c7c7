#include "pictures/pictograms.h"

namespace varek::pictures {

namespace {

constexpr QPointF kMiddle(0.5, 0.5);
constexpr double kBadgeLine = 0.13;  ///< badges are drawn small

/// The whole thing in the colour of its condition.
Sketch AllMarked(const Sketch& s) {
  const Inks& inks = s.Colors();
  return s.With({inks.mark, inks.mark, inks.ground});
}

/// A line across the sketch, set off from what it crosses.
void Strike(Sketch s) {
  s.Line({{0.12, 0.12}, {0.88, 0.88}}, s.Colors().ground, 0.26);
  s.Line({{0.12, 0.12}, {0.88, 0.88}}, s.Colors().mark, 0.11);
}

void Cross(Sketch s, QPointF centre, double reach, double width) {
  const double x = centre.x();
  const double y = centre.y();
  s.Line({{x - reach, y - reach}, {x + reach, y + reach}}, s.Colors().mark, width);
  s.Line({{x + reach, y - reach}, {x - reach, y + reach}}, s.Colors().mark, width);
}

void Plug(Sketch s) {
  const QColor& line = s.Colors().line;
  s.Box({0.28, 0.04, 0.12, 0.3}, line);
  s.Box({0.6, 0.04, 0.12, 0.3}, line);
  s.Box({0.16, 0.28, 0.68, 0.2}, line);
  s.Box({0.2, 0.3, 0.6, 0.44}, line, 0.26);
  s.Line({{0.5, 0.7}, {0.5, 0.94}}, line, 0.1);
}

void Chain(Sketch s) {
  s.Turn(-45);
  s.Frame({0, 0.34, 0.6, 0.32}, s.Colors().line, 0.16);
  s.Frame({0.4, 0.34, 0.6, 0.32}, s.Colors().line, 0.16);
}

void BatteryCase(Sketch s) {
  s.Frame({0.04, 0.24, 0.82, 0.52}, s.Colors().line);
  s.Box({0.89, 0.39, 0.09, 0.22}, s.Colors().line, 0.03);
}

/// Of three cells, the first `count` filled.
void Cells(Sketch s, int count) {
  for (int cell = 0; cell < count; ++cell) {
    s.Box({0.13 + 0.22 * cell, 0.33, 0.18, 0.34}, s.Colors().mark, 0.02);
  }
}

void Bolt(Sketch s, const QColor& color) {
  s.Shape({{0.6, 0}, {0.2, 0.58}, {0.47, 0.58}, {0.38, 1}, {0.82, 0.4}, {0.54, 0.4}}, color);
}

/// The pulse line of a test that runs, within a battery's case.
void Pulse(Sketch s) {
  s.Line({{0.14, 0.52}, {0.3, 0.52}, {0.39, 0.35}, {0.52, 0.66}, {0.6, 0.52}, {0.75, 0.52}},
         s.Colors().mark, 0.075);
}

void Tick(Sketch s, const QColor& color, double width) {
  s.Line({{0.12, 0.54}, {0.4, 0.82}, {0.9, 0.2}}, color, width);
}

void PowerSign(Sketch s, const QColor& color) {
  s.Arc({0.5, 0.54}, 0.38, 125, 290, color, kBadgeLine);
  s.Line({{0.5, 0.08}, {0.5, 0.48}}, color, kBadgeLine);
}

void RestartSign(Sketch s, const QColor& color) {
  s.Arc({0.5, 0.54}, 0.36, 70, -290, color, kBadgeLine);
  s.Shape({{0.3, 0.0}, {0.62, 0.17}, {0.34, 0.4}}, color);
}

void Computer(Sketch s) {
  s.Frame({0.05, 0.1, 0.9, 0.6}, s.Colors().line, 0.06);
  s.Line({{0.5, 0.72}, {0.5, 0.9}}, s.Colors().line);
  s.Line({{0.28, 0.92}, {0.72, 0.92}}, s.Colors().line);
}

void Tower(Sketch s) {
  s.Frame({0.2, 0.05, 0.6, 0.9}, s.Colors().line, 0.08);
  s.Line({{0.38, 0.24}, {0.62, 0.24}}, s.Colors().line);
  s.Line({{0.38, 0.4}, {0.62, 0.4}}, s.Colors().line);
}

void ComputerAndTower(Sketch s) {
  Computer(s.Part({0, 0.06, 0.64, 0.64}));
  Tower(s.Part({0.5, 0, 0.62, 0.7}));
}

using Badge = void (*)(Sketch s, const QColor& color);

/// What happens to the device, in a field of its own at the lower right corner.
void WithBadge(Sketch s, Pictogram device, Badge badge) {
  device(s);
  s.Disc({0.72, 0.7}, 0.36, s.Colors().ground);
  badge(s.Part({0.46, 0.44, 0.54, 0.54}), s.Colors().mark);
}

void ArrowRight(Sketch s, QPointF tip, const QColor& color) {
  s.Shape({tip, tip + QPointF(-0.22, -0.15), tip + QPointF(-0.22, 0.15)}, color);
}

}  // namespace

void Linked(Sketch s) { Chain(AllMarked(s)); }

void Unlinked(Sketch s) {
  Chain(s);
  Strike(s);
}

void MainsPresent(Sketch s) { Plug(AllMarked(s)); }

void MainsFailed(Sketch s) {
  Plug(s);
  Strike(s);
}

void BatteryFull(Sketch s) {
  BatteryCase(s);
  Cells(s, 3);
}

void BatteryInUse(Sketch s) {
  BatteryCase(s);
  Cells(s, 2);
}

void BatteryLow(Sketch s) {
  BatteryCase(s);
  Cells(s, 1);
  s.Line({{0.58, 0.36}, {0.58, 0.5}}, s.Colors().mark, 0.1);
  s.Disc({0.58, 0.64}, 0.055, s.Colors().mark);
}

void BatteryGood(Sketch s) {
  BatteryCase(s);
  Tick(s.Part({0.28, 0.33, 0.34, 0.34}), s.Colors().mark, 0.26);
}

void BatteryFailed(Sketch s) {
  BatteryCase(s);
  Cross(s, {0.45, 0.5}, 0.13, 0.1);
}

void Charging(Sketch s) {
  BatteryCase(s);
  Bolt(s.Part({0.1, -0.04, 0.7, 1.08}), s.Colors().ground);
  Bolt(s.Part({0.2, 0.1, 0.5, 0.8}), s.Colors().mark);
}

void BatteryTest(Sketch s) {
  BatteryCase(s);
  Pulse(s);
}

void BatteryTestUntilLow(Sketch s) {
  BatteryTest(s.Part({0, -0.2, 1, 1}));
  s.Shape({{0.2, 0.68}, {0.7, 0.68}, {0.45, 0.96}}, s.Colors().mark);
}

void BatteryTestCancelled(Sketch s) {
  const Inks& inks = s.Colors();
  BatteryTest(s.With({inks.line, inks.line, inks.ground}));
  Strike(s);
}

void NoBatteryTest(Sketch s) {
  BatteryCase(s);
  s.Line({{0.16, 0.5}, {0.74, 0.5}}, s.Colors().mark, 0.075);
}

void Healthy(Sketch s) {
  s.Ring(kMiddle, 0.44, s.Colors().line);
  Tick(s.Part({0.24, 0.24, 0.52, 0.52}), s.Colors().mark, 0.2);
}

void Hot(Sketch s) {
  const QColor& line = s.Colors().line;
  s.Box({0.29, 0.02, 0.28, 0.72}, line, 0.14);
  s.Disc({0.43, 0.78}, 0.21, line);
  s.Box({0.375, 0.1, 0.11, 0.6}, s.Colors().ground, 0.05);
  s.Disc({0.43, 0.78}, 0.13, s.Colors().mark);
  s.Box({0.385, 0.2, 0.09, 0.55}, s.Colors().mark, 0.04);
  for (const double y : {0.14, 0.32, 0.5}) s.Line({{0.7, y}, {0.84, y}}, line);
}

void Overloaded(Sketch s) {
  s.Arc({0.5, 0.68}, 0.44, 215, -180, s.Colors().line);
  s.Arc({0.5, 0.68}, 0.44, 35, -70, s.Colors().mark);
  s.Line({{0.5, 0.68}, {0.8, 0.56}}, s.Colors().mark, 0.1);
  s.Disc({0.5, 0.68}, 0.11, s.Colors().line);
}

void Fault(Sketch s) {
  s.Shape({{0.5, 0.06}, {0.97, 0.92}, {0.03, 0.92}}, s.Colors().mark);
  s.Line({{0.5, 0.38}, {0.5, 0.62}}, s.Colors().ground, 0.11);
  s.Disc({0.5, 0.78}, 0.06, s.Colors().ground);
}

void VoltageRegulation(Sketch s) {
  s.Word({-0.2, 0.12, 1.4, 0.4}, "AVR", s.Colors().line);
  s.Wave({0.0, 0.64, 1, 0.26}, s.Colors().mark);
}

void Standby(Sketch s) {
  s.Line({{-0.2, 0.26}, {1, 0.26}}, s.Colors().mark);
  ArrowRight(s, {1.2, 0.26}, s.Colors().mark);
  BatteryCase(s.Part({0.16, 0.36, 0.72, 0.72}));
}

void BypassRoute(Sketch s) {
  s.Frame({0.24, 0.48, 0.52, 0.44}, s.Colors().line);
  s.Wave({0.34, 0.58, 0.32, 0.24}, s.Colors().line);
  s.Line({{-0.2, 0.7}, {-0.02, 0.7}, {-0.02, 0.2}, {1.02, 0.2}, {1.02, 0.58}}, s.Colors().mark);
  ArrowRight(s, {1.26, 0.7}, s.Colors().mark);
}

void DoubleConversion(Sketch s) {
  s.Frame({0.18, 0.18, 0.64, 0.64}, s.Colors().line);
  s.Wave({0.32, 0.34, 0.36, 0.32}, s.Colors().mark);
  s.Line({{-0.22, 0.5}, {0.1, 0.5}}, s.Colors().mark);
  s.Line({{0.9, 0.5}, {1.05, 0.5}}, s.Colors().mark);
  ArrowRight(s, {1.26, 0.5}, s.Colors().mark);
}

void ProgramStart(Sketch s) {
  s.Ring(kMiddle, 0.44, s.Colors().line);
  s.Shape({{0.38, 0.26}, {0.78, 0.5}, {0.38, 0.74}}, s.Colors().mark);
}

void ProgramEnd(Sketch s) {
  s.Ring(kMiddle, 0.44, s.Colors().line);
  s.Box({0.33, 0.33, 0.34, 0.34}, s.Colors().mark, 0.02);
}

void ComputerOn(Sketch s) { Computer(AllMarked(s)); }

void ComputerOff(Sketch s) { WithBadge(s, Computer, PowerSign); }
void UpsOff(Sketch s) { WithBadge(s, Tower, PowerSign); }
void UpsRestart(Sketch s) { WithBadge(s, Tower, RestartSign); }
void BothOff(Sketch s) { WithBadge(s, ComputerAndTower, PowerSign); }
void BothRestart(Sketch s) { WithBadge(s, ComputerAndTower, RestartSign); }

void Language(Sketch s) {
  s.Ring(kMiddle, 0.44, s.Colors().line);
  s.Part({0.28, 0, 0.44, 1}).Ring(kMiddle, 0.44, s.Colors().line);
  s.Line({{0.08, 0.5}, {0.92, 0.5}}, s.Colors().mark);
  s.Line({{0.14, 0.28}, {0.86, 0.28}}, s.Colors().line);
  s.Line({{0.14, 0.72}, {0.86, 0.72}}, s.Colors().line);
}

void Settings(Sketch s) {
  for (int tooth = 0; tooth < 8; ++tooth) {
    s.Box({0.42, 0.02, 0.16, 0.3}, s.Colors().line, 0.04);
    s.Turn(45);
  }
  s.Disc(kMiddle, 0.36, s.Colors().line);
  s.Disc(kMiddle, 0.18, s.Colors().ground);
  s.Disc(kMiddle, 0.09, s.Colors().mark);
}

void Calendar(Sketch s) {
  s.Frame({0.08, 0.16, 0.84, 0.76}, s.Colors().line);
  s.Box({0.08, 0.16, 0.84, 0.2}, s.Colors().line);
  s.Line({{0.3, 0.06}, {0.3, 0.2}}, s.Colors().line);
  s.Line({{0.7, 0.06}, {0.7, 0.2}}, s.Colors().line);
  for (int day = 0; day < 6; ++day) {
    s.Box({0.22 + 0.21 * (day % 3), 0.46 + 0.2 * (day / 3), 0.13, 0.13},
          day == 4 ? s.Colors().mark : s.Colors().line, 0.02);
  }
}

void EventList(Sketch s) {
  s.Frame({0.14, 0.06, 0.72, 0.88}, s.Colors().line, 0.06);
  for (const double y : {0.27, 0.5, 0.73}) {
    s.Disc({0.3, y}, 0.06, s.Colors().mark);
    s.Line({{0.46, y}, {0.7, y}}, s.Colors().line);
  }
}

void History(Sketch s) {
  s.Line({{0.08, 0.06}, {0.08, 0.92}, {0.96, 0.92}}, s.Colors().line);
  s.Line({{0.2, 0.72}, {0.4, 0.46}, {0.6, 0.6}, {0.9, 0.16}}, s.Colors().mark);
}

void Oscilloscope(Sketch s) {
  s.Frame({0.04, 0.12, 0.92, 0.76}, s.Colors().line);
  s.Line({{0.16, 0.5}, {0.84, 0.5}}, s.Colors().line, 0.025);
  s.Line({{0.5, 0.24}, {0.5, 0.76}}, s.Colors().line, 0.025);
  s.Wave({0.18, 0.26, 0.64, 0.48}, s.Colors().mark);
}

void ShortMessage(Sketch s) {
  s.Frame({0.05, 0.12, 0.9, 0.58}, s.Colors().line, 0.14);
  s.Shape({{0.22, 0.68}, {0.5, 0.68}, {0.22, 0.96}}, s.Colors().line);
  for (const double x : {0.28, 0.5, 0.72}) s.Disc({x, 0.41}, 0.065, s.Colors().mark);
}

void Mail(Sketch s) {
  s.Frame({0.04, 0.18, 0.92, 0.64}, s.Colors().line, 0.05);
  s.Line({{0.08, 0.24}, {0.5, 0.56}, {0.92, 0.24}}, s.Colors().mark);
}

void Table(Sketch s) {
  s.Frame({0.06, 0.12, 0.88, 0.76}, s.Colors().line, 0.04);
  s.Box({0.06, 0.12, 0.88, 0.22}, s.Colors().mark, 0.04);
  for (const double y : {0.36, 0.62}) s.Line({{0.06, y}, {0.94, y}}, s.Colors().line, 0.05);
  for (const double x : {0.36, 0.65}) s.Line({{x, 0.36}, {x, 0.88}}, s.Colors().line, 0.05);
}

void Information(Sketch s) {
  s.Ring(kMiddle, 0.44, s.Colors().line);
  s.Disc({0.5, 0.29}, 0.07, s.Colors().mark);
  s.Line({{0.5, 0.46}, {0.5, 0.73}}, s.Colors().mark, 0.11);
}

void ProgramSign(Sketch s) {
  s.Frame({0.16, 0.04, 0.68, 0.92}, s.Colors().line);
  Bolt(s.Part({0.22, 0.2, 0.56, 0.6}), s.Colors().mark);
}

}  // namespace varek::pictures

#include "views/dashboard/instrument_panel.h"

#include <algorithm>
#include <cmath>

#include "drawing/palette.h"
#include "platform/system/paths.h"
#include "platform/text/text.h"
#include "texts/language.h"

namespace varek {

namespace {

constexpr platform::Color kWhite{255, 255, 255};
constexpr platform::Color kHub{200, 0, 0};
constexpr int kNeedleWidth = 3;
constexpr int kHubRadius = 3;
constexpr double kTextSize = 12;  ///< design units
constexpr int kLeastTextSize = 10;

platform::Surface LoadBar(const char* kind, const SizeClass& sizeClass) {
  return platform::Surface(platform::ImagePath(kind + std::string(sizeClass.suffix) + ".jpg"));
}

/// Bar pictures of any size are taken; they are forced to that of their class.
platform::Surface Forced(const platform::Surface& picture, const BarSize& size) {
  platform::Surface forced(size.width, size.height);
  forced.Stretch(
      {0, 0, static_cast<double>(size.width), static_cast<double>(size.height)}, picture,
      {0, 0, static_cast<double>(picture.Width()), static_cast<double>(picture.Height())});
  return forced;
}

const char* PanelKind() {
  if (DataCenter.HasTemperature && DataCenter.HasLoad) return "instrument";
  return DataCenter.HasLoad ? "OFFinstrument" : "NoLoadinstrument";
}

float BatteryReading() {
  return static_cast<float>(BatteryPercent(DataCenter.readings.BatteryVoltage));
}

float FrequencyReading() { return static_cast<float>(platform::LenientNumber(GetFrequency())); }

}  // namespace

std::string PanelPicture(const SizeClass& sizeClass) {
  return PanelKind() + std::string(sizeClass.suffix) + ".jpg";
}

InstrumentPanel::InstrumentPanel() {
  for (const SizeClass& sizeClass : kSizeClasses) {
    const auto index = static_cast<size_t>(sizeClass.barIndex);
    batteryBars_[index] = Forced(LoadBar("batterybar", sizeClass), kBarSizes[index]);
    loadBars_[index] = Forced(LoadBar("loadbar", sizeClass), kBarSizes[index]);
  }
  panel_.SetSmooth(true);
}

void InstrumentPanel::Resize(int clientWidth, int width, int height) {
  scale_ = ChooseScale(clientWidth, width, height);
  panel_.Resize(width, height);
  back_.Resize(width, height);
  back_.Clear(palette::kPanel);
  bool changed = false;
  ReNewBuffer(changed);
  ReNewBack();
  ShowNextFrame();
}

/// What the next frame will show, so that nothing flickers while the size changes. The needles stay
/// where they are.
void InstrumentPanel::ShowNextFrame() {
  const Needles kept = needles_;
  PaintMain();
  needles_ = kept;
}

void InstrumentPanel::Frame() {
  bool changed = false;
  ReNewBuffer(changed);
  if (changed) ReNewBack();
  PaintMain();
}

void InstrumentPanel::ReNewBuffer(bool& changed) {
  const Choice present{DataCenter.flags.UPStype, DataCenter.identity.UPSVersion, scale_.sizeClass,
                       DataCenter.IsConnect};
  changed = !(present == choice_);
  if (!changed) return;
  // Remembered first: a picture that has gone is reported once, not at every frame.
  choice_ = present;
  DeriveCapabilities();
  face_ = platform::Surface(platform::ImagePath(PanelPicture(*scale_.sizeClass)));
}

void InstrumentPanel::ReNewBack() {
  const double width = scale_.sizeClass->designWidth;
  const double height = scale_.sizeClass->designHeight;
  back_.Stretch({0, 0, width * scale_.fit, height * scale_.fit}, face_, {0, 0, width, height});
}

void InstrumentPanel::PaintMain() {
  panel_.Copy(back_);
  panel_.SetLineWidth(scale_.sizeClass->lineWidth);
  panel_.SetTextSize(
      std::max(kLeastTextSize, static_cast<int>(std::lround(kTextSize * scale_.factor))));
  DrawReadings();
  if (DataCenter.HasTemperature) DrawTemperature();
  DataCenter.HasLoad ? DrawTwoBars() : DrawBatteryAlone();
}

void InstrumentPanel::DrawReadings() {
  const Dial& input = DialOf(kInputDial);
  const Dial& output = DialOf(kOutputDial);
  const Dial& frequency = DialOf(kFrequencyDial);
  DrawDial(input, DataCenter.readings.InputVoltage);
  DrawDial(output, DataCenter.readings.OutputVoltage);
  DrawDial(frequency, FrequencyReading());
  PrintValue(input.value, DataCenter.readings.InputVoltage, "V");
  PrintValue(output.value, DataCenter.readings.OutputVoltage, "V");
  PrintValue(frequency.value, FrequencyReading(), "Hz");
  PrintCentred(LangText[texts::kOutputVoltage], output.caption);
  PrintCentred(LangText[texts::kInputVoltage], input.caption);
  PrintCentred(LangText[texts::kFrequency], frequency.caption);
}

void InstrumentPanel::DrawTemperature() {
  const Dial& dial = DialOf(kTemperatureDial);
  PrintCentred(LangText[texts::kTemperature], dial.caption);
  PrintValue(dial.value, GetTemperature(), DataCenter.settings.UseCelsius ? "C" : "F");
  DrawDial(dial, GetTemperature());
}

void InstrumentPanel::DrawTwoBars() {
  DrawLevelBar(kBatteryWithLoad, BatteryReading(), batteryBars_);
  DrawLevelBar(kLoad, GetLoadPercent(), loadBars_);
  PrintBarTexts(kBatteryWithLoad, BatteryReading(), LangText[texts::kBattery]);
  PrintBarTexts(kLoad, GetLoadPercent(), LangText[texts::kLoad]);
}

void InstrumentPanel::DrawBatteryAlone() {
  DrawLevelBar(kBatteryAlone, BatteryReading(), batteryBars_);
  PrintBarTexts(kBatteryAlone, BatteryReading(), LangText[texts::kBattery]);
}

void InstrumentPanel::DrawDial(const Dial& dial, float value) {
  switch (dial.needle) {
    case Needle::Main:
      return DrawMainNeedle(dial, value);
    case Needle::Left:
      return DrawLeftNeedle(dial, value);
    case Needle::Right:
      return DrawRightNeedle(dial, value);
  }
}

void InstrumentPanel::DrawMainNeedle(const Dial& dial, float value) {
  panel_.SetLineWidth(kNeedleWidth);
  DrawLine(needles_.MoveMain(dial, value, scale_));
  const Point centre = DialCentre(dial, scale_.factor);
  panel_.Circle(centre.x, centre.y, kHubRadius, kHub);
}

void InstrumentPanel::DrawLeftNeedle(const Dial& dial, float value) {
  panel_.SetLineWidth(kNeedleWidth);
  DrawLine(needles_.MoveLeft(dial, value, scale_));
}

/// Drawn with the width that the needle before it has left.
void InstrumentPanel::DrawRightNeedle(const Dial& dial, float value) {
  DrawLine(needles_.MoveRight(dial, value, scale_));
}

void InstrumentPanel::DrawLine(const NeedleLine& line) {
  panel_.Line(line.tail.x, line.tail.y, line.tip.x, line.tip.y, kWhite);
}

void InstrumentPanel::DrawLevelBar(const Bar& bar, float value, const BarPictures& pictures) {
  const BarPart part = needles_.MoveBar(bar, value, scale_);
  panel_.Stretch(part.to, pictures.at(static_cast<size_t>(scale_.sizeClass->barIndex)), part.from);
}

void InstrumentPanel::PrintBarTexts(const Bar& bar, float value, const std::string& caption) {
  PrintValue(bar.value, value, "%");
  PrintCentred(caption, bar.caption);
  PrintCentred(bar.topNumeral, bar.topNumeralPlace);
}

void InstrumentPanel::PrintValue(Spot at, float value, const char* unit) {
  panel_.SetTextColor(palette::kReading);
  panel_.Text(ToPixels(at.x, scale_.factor), ToPixels(at.y, scale_.factor),
              platform::SingleText(value) + unit);
}

void InstrumentPanel::PrintCentred(const std::string& text, Spot at) {
  panel_.Text(ToPixels(at.x, scale_.factor) - panel_.TextWidth(text) / 2.0,
              ToPixels(at.y, scale_.factor), text);
}

}  // namespace varek

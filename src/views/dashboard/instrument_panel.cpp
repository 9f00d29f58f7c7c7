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

InstrumentPanel::InstrumentPanel() {
  for (const SizeClass& sizeClass : kSizeClasses) {
    const auto index = static_cast<size_t>(sizeClass.barIndex);
    Picture3[index] = Forced(LoadBar("batterybar", sizeClass), kBarSizes[index]);
    Picture5[index] = Forced(LoadBar("loadbar", sizeClass), kBarSizes[index]);
  }
  Picture11.SetSmooth(true);
}

void InstrumentPanel::Resize(int clientWidth, int width, int height) {
  sizeClass_ = &ChooseSizeClass(clientWidth);
  Picture11.Resize(width, height);
  PictureOut.Resize(width, height);
  PictureOut.Clear(palette::kPanel);
  bool changed = false;
  ReNewBuffer(changed);
  ReNewBack();
  ShowNextFrame();
}

/// What the next frame will show, so that nothing flickers while the size changes. The needles stay
/// where they are.
void InstrumentPanel::ShowNextFrame() {
  const Needles kept = needles_;
  Paint();
  needles_ = kept;
}

void InstrumentPanel::Frame() {
  bool changed = false;
  ReNewBuffer(changed);
  if (changed) ReNewBack();
  Paint();
}

void InstrumentPanel::Paint() {
  PaintMain(static_cast<int16_t>(sizeClass_->lineWidth), sizeClass_->sizeFactor,
            FitScale(Picture11.Width(), Picture11.Height(), *sizeClass_), kOffsetX, kOffsetY,
            static_cast<int16_t>(sizeClass_->barIndex));
}

void InstrumentPanel::ReNewBuffer(bool& changed) {
  const Choice present{DataCenter.flags.UPStype, DataCenter.identity.UPSVersion, sizeClass_,
                       DataCenter.IsConnect};
  changed = !(present == choice_);
  if (!changed) return;
  // Remembered first: a picture that has gone is reported once, not at every frame.
  choice_ = present;
  DeriveCapabilities();
  name_ = PanelKind() + std::string(sizeClass_->suffix) + ".jpg";
  InstrumentPicture = platform::Surface(platform::ImagePath(name_));
}

void InstrumentPanel::ReNewBack() {
  const float fit = FitScale(PictureOut.Width(), PictureOut.Height(), *sizeClass_);
  const double width = sizeClass_->designWidth;
  const double height = sizeClass_->designHeight;
  PictureOut.Stretch({0, 0, width * fit, height * fit}, InstrumentPicture, {0, 0, width, height});
}

void InstrumentPanel::PaintMain(int16_t lineWidth, float sizeFactor, float fitScale,
                                int16_t offsetX, int16_t offsetY, int16_t barIndex) {
  factor_ = sizeFactor * fitScale;
  fitScale_ = fitScale;
  offsetX_ = offsetX;
  offsetY_ = offsetY;
  Picture11.Copy(PictureOut);
  Picture11.SetLineWidth(lineWidth);
  Picture11.SetTextSize(
      std::max(kLeastTextSize, static_cast<int>(std::lround(kTextSize * factor_))));
  DrawReadings();
  if (DataCenter.HasTemperature) DrawTemperature();
  DataCenter.HasLoad ? DrawTwoBars(barIndex) : DrawBatteryAlone(barIndex);
}

void InstrumentPanel::DrawReadings() {
  DrawDial(DialOf(kInputDial), DataCenter.readings.InputVoltage);
  DrawDial(DialOf(kOutputDial), DataCenter.readings.OutputVoltage);
  DrawDial(DialOf(kFrequencyDial), FrequencyReading());
  PrintValue(248, 327, DataCenter.readings.InputVoltage, "V");
  PrintValue(85, 387, DataCenter.readings.OutputVoltage, "V");
  PrintValue(400, 389, FrequencyReading(), "Hz");
  PrintCentred(LangText[texts::kOutputVoltage], 100, 405);
  PrintCentred(LangText[texts::kInputVoltage], 265, 346);
  PrintCentred(LangText[texts::kFrequency], 410, 405);
}

void InstrumentPanel::DrawTemperature() {
  PrintCentred(LangText[texts::kTemperature], 472, 75);
  PrintValue(465, 60, GetTemperature(), DataCenter.settings.UseCelsius ? "C" : "F");
  DrawDial(DialOf(kTemperatureDial), GetTemperature());
}

void InstrumentPanel::DrawTwoBars(int barIndex) {
  const auto index = static_cast<size_t>(barIndex);
  DrawLevelBar(BatteryReading(), kBatteryWithLoad, Picture3.at(index));
  DrawLevelBar(GetLoadPercent(), kLoad, Picture5.at(index));
  PrintValue(615, 353, BatteryReading(), "%");
  PrintValue(546, 352, GetLoadPercent(), "%");
  PrintCentred(LangText[texts::kLoad], 555, 370);
  PrintCentred(LangText[texts::kBattery], 628, 370);
  PrintCentred("120%", 555, 26);
  PrintCentred("100%", 624, 26);
}

void InstrumentPanel::DrawBatteryAlone(int barIndex) {
  DrawLevelBar(BatteryReading(), kBatteryAlone, Picture3.at(static_cast<size_t>(barIndex)));
  PrintValue(570, 353, BatteryReading(), "%");
  PrintCentred(LangText[texts::kBattery], 581, 370);
  PrintCentred("100%", 577, 26);
}

void InstrumentPanel::DrawDial(const Dial& dial, float value) {
  const Point centre{static_cast<double>(ToPixels(offsetX_ + dial.centreX, factor_)),
                     static_cast<double>(ToPixels(offsetY_ + dial.centreY, factor_))};
  const double length = ToPixels(dial.length, factor_);
  switch (dial.needle) {
    case Needle::Main:
      return DrawMainNeedle(value, dial, centre, length);
    case Needle::Left:
      return DrawLeftNeedle(value, dial, centre, length);
    case Needle::Right:
      return DrawRightNeedle(value, dial, centre, length);
  }
}

void InstrumentPanel::DrawMainNeedle(float value, const Dial& dial, Point centre, double length) {
  const NeedleLine line = needles_.MoveMain(value, dial.index, dial.fullScale, dial.startAngle,
                                            dial.endAngle, centre, length);
  Picture11.SetLineWidth(kNeedleWidth);
  Picture11.Line(line.tail.x, line.tail.y, line.tip.x, line.tip.y, kWhite);
  Picture11.Circle(centre.x, centre.y, kHubRadius, kHub);
}

void InstrumentPanel::DrawLeftNeedle(float value, const Dial& dial, Point centre, double length) {
  const NeedleLine line = needles_.MoveLeft(value, dial.index, dial.fullScale, dial.startAngle,
                                            dial.endAngle, centre, length);
  Picture11.SetLineWidth(kNeedleWidth);
  Picture11.Line(line.tail.x, line.tail.y, line.tip.x, line.tip.y, kWhite);
}

/// Drawn with the width that the needle before it has left.
void InstrumentPanel::DrawRightNeedle(float value, const Dial& dial, Point centre, double length) {
  const NeedleLine line = needles_.MoveRight(value, dial.index, dial.fullScale, dial.startAngle,
                                             dial.endAngle, centre, length);
  Picture11.Line(line.tail.x, line.tail.y, line.tip.x, line.tip.y, kWhite);
}

void InstrumentPanel::DrawLevelBar(float value, const Bar& bar, const platform::Surface& picture) {
  const Needles::BarPart part = needles_.MoveBar(
      value, bar.index, bar.fullScale, 0, picture.Height(), ToPixels(bar.x, factor_),
      ToPixels(bar.y, factor_), fitScale_, {picture.Width(), picture.Height()});
  Picture11.Stretch(part.to, picture, part.from);
}

void InstrumentPanel::PrintValue(int x, int y, float value, const char* unit) {
  Picture11.SetTextColor(palette::kReading);
  Picture11.Text(ToPixels(x, factor_), ToPixels(y, factor_), platform::SingleText(value) + unit);
}

void InstrumentPanel::PrintCentred(const std::string& text, int x, int y) {
  Picture11.Text(ToPixels(x, factor_) - Picture11.TextWidth(text) / 2.0, ToPixels(y, factor_),
                 text);
}

}  // namespace varek

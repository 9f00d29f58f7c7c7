// The dial panel of the dashboard: the prepared dial face, and on it the needles, bars and readings
// of the present moment. Each frame copies the face and draws the moving parts; the face itself is
// built anew only when the kind of unit, the link or the size changes. Reads the live state alone,
// and writes only HasTemperature and HasLoad.
#pragma once

#include <array>
#include <string>

#include "core/data_center.h"
#include "drawing/instruments.h"
#include "platform/picture/surface.h"

namespace varek {

class InstrumentPanel final {
 public:
  /// Loads the bar pictures. A missing one throws RuntimeError 53.
  InstrumentPanel();

  /// `clientWidth` is that of the dashboard, which chooses the size class; the panel itself
  /// becomes `width` by `height`, and shows what its next frame will show.
  void Resize(int clientWidth, int width, int height);

  /// One tick of the frame timer. A panel picture that can't be loaded throws, and so does a
  /// position beyond 16 bits.
  void Frame();

  /// What is seen.
  const platform::Surface& Picture() const { return Picture11; }
  /// Degrees of a dial, rows of a bar's picture.
  double NeedlePosition(Instrument index) const { return needles_.Position(index); }
  /// The file of the panel picture in use.
  const std::string& PictureName() const { return name_; }

  /// Chooses the panel picture by what the unit measures; `changed` is true when another one was
  /// loaded.
  void ReNewBuffer(bool& changed);

 private:
  /// What the panel was last chosen for.
  struct Choice {
    Flag upsType;
    std::string version;
    const SizeClass* sizeClass;
    Flag isConnect;
    bool operator==(const Choice&) const = default;
  };

  void ReNewBack();
  void ShowNextFrame();
  void Paint();
  void PaintMain(int16_t lineWidth, float sizeFactor, float fitScale, int16_t offsetX,
                 int16_t offsetY, int16_t barIndex);
  void DrawDial(const Dial& dial, float value);
  void DrawMainNeedle(float value, const Dial& dial, Point centre, double length);
  void DrawLeftNeedle(float value, const Dial& dial, Point centre, double length);
  void DrawRightNeedle(float value, const Dial& dial, Point centre, double length);
  void DrawReadings();
  void DrawTemperature();
  void DrawTwoBars(int barIndex);
  void DrawBatteryAlone(int barIndex);
  void DrawLevelBar(float value, const Bar& bar, const platform::Surface& picture);
  void PrintValue(int x, int y, float value, const char* unit);
  void PrintCentred(const std::string& text, int x, int y);

  platform::Surface Picture11;                ///< what is seen
  platform::Surface PictureOut;               ///< the scaled face alone
  platform::Surface InstrumentPicture;        ///< the face as loaded
  std::array<platform::Surface, 3> Picture3;  ///< filled battery bars, by bar index
  std::array<platform::Surface, 3> Picture5;  ///< filled load bars
  Needles needles_;
  Choice choice_{kClear, "", nullptr, kClear};
  std::string name_;
  const SizeClass* sizeClass_ = &kSizeClasses[0];

  // Of the frame that is being drawn.
  double factor_ = 1;  ///< pixels for a design unit
  float fitScale_ = 1;
  int offsetX_ = 0;
  int offsetY_ = 0;
};

}  // namespace varek

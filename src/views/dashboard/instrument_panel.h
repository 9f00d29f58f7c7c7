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

/// The file of the panel's picture for what the unit measures: HasTemperature and HasLoad.
std::string PanelPicture(const SizeClass& sizeClass);

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
  const platform::Surface& Picture() const { return panel_; }

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
  /// By SizeClass::barIndex.
  using BarPictures = std::array<platform::Surface, kBarSizes.size()>;

  void ReNewBack();
  void ShowNextFrame();
  void PaintMain();
  void DrawReadings();
  void DrawTemperature();
  void DrawTwoBars();
  void DrawBatteryAlone();
  void DrawDial(const Dial& dial, float value);
  void DrawMainNeedle(const Dial& dial, float value);
  void DrawLeftNeedle(const Dial& dial, float value);
  void DrawRightNeedle(const Dial& dial, float value);
  void DrawLine(const NeedleLine& line);
  void DrawLevelBar(const Bar& bar, float value, const BarPictures& pictures);
  void PrintBarTexts(const Bar& bar, float value, const std::string& caption);
  void PrintValue(Spot at, float value, const char* unit);
  void PrintCentred(const std::string& text, Spot at);

  platform::Surface panel_;  ///< what is seen
  platform::Surface back_;   ///< the scaled face alone
  platform::Surface face_;   ///< as loaded
  BarPictures batteryBars_;  ///< filled
  BarPictures loadBars_;
  Needles needles_;
  Choice choice_{kClear, "", nullptr, kClear};
  PanelScale scale_;
};

}  // namespace varek

// What the five lamps of the dashboard show, as rules without a window: which are lit, with which
// picture, and what each says when the pointer rests on it.
#pragma once

#include <array>
#include <optional>
#include <string>

namespace varek {

/// From top to bottom.
enum Lamp : int {
  kHealthLamp,
  kMainsLamp,
  kBatteryLevelLamp,
  kBatteryConditionLamp,
  kWayOfWorkingLamp,
  kLampCount
};

/// All pictures that a lamp can show.
extern const std::array<const char*, 16> kLampPictures;

/// All but the health are dark without a link, and the way of working also while the mains are out,
/// since it says nothing then.
bool IsLampShown(Lamp lamp);

/// File of the picture for the present state; nothing when the lamp stays as it is.
std::optional<std::string> LampPicture(Lamp lamp);

/// The present state in words.
std::string LampText(Lamp lamp);

}  // namespace varek

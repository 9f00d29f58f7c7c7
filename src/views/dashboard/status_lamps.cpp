#include "views/dashboard/status_lamps.h"

#include "core/data_center.h"
#include "texts/language.h"

namespace varek {

namespace {

struct LampState {
  const char* picture;
  size_t text;  ///< number in the language table
};

LampState Mains() {
  if (DataCenter.flags.Utility) return {"powerf.jpg", texts::kMainsFailed};
  return {"powerok.jpg", texts::kMainsPresent};
}

LampState BatteryLevel() {
  if (DataCenter.flags.BatLow) return {"batterylow.jpg", texts::kBatteryLow};
  return {"nobatterylow.jpg", texts::kBatteryNotLow};
}

LampState BatteryCondition() {
  if (DataCenter.flags.UPSFailed) return {"batteryf.jpg", texts::kUpsFault};
  if (DataCenter.flags.TestProgress) return {"testing.jpg", texts::kTestRunning};
  return {"notest.jpg", texts::kNoTestRunning};
}

LampState WayOfWorking() {
  if (DataCenter.flags.UPStype && DataCenter.flags.Bypass)
    return {"avr.jpg", texts::kOfflineRegulating};
  if (DataCenter.flags.UPStype) return {"offline.jpg", texts::kOfflineNormal};
  if (DataCenter.flags.Bypass) return {"bypass.jpg", texts::kBypass};
  return {"online.jpg", texts::kOnline};
}

LampState StateOf(Lamp lamp) {
  switch (lamp) {
    case kMainsLamp:
      return Mains();
    case kBatteryLevelLamp:
      return BatteryLevel();
    case kBatteryConditionLamp:
      return BatteryCondition();
    default:
      return WayOfWorking();
  }
}

std::optional<std::string> HealthPicture(int stage) {
  switch (stage) {
    case 1:
      return "disconnect.jpg";
    case 2:
      return "charge.jpg";
    case 4:
      return "hot.jpg";
    case 6:
      return "overload.jpg";
    case 0:
    case 3:
    case 5:
    case 7:
    case 8:
      return "good.jpg";
    default:
      return std::nullopt;
  }
}

}  // namespace

const std::array<const char*, 16> kLampPictures{
    "disconnect.jpg",   "good.jpg",     "charge.jpg",  "hot.jpg",
    "overload.jpg",     "powerf.jpg",   "powerok.jpg", "batterylow.jpg",
    "nobatterylow.jpg", "batteryf.jpg", "testing.jpg", "notest.jpg",
    "avr.jpg",          "offline.jpg",  "bypass.jpg",  "online.jpg"};

bool IsLampShown(Lamp lamp) {
  if (lamp == kHealthLamp) return true;
  if (!DataCenter.IsConnect) return false;
  return lamp != kWayOfWorkingLamp || !DataCenter.flags.Utility;
}

std::optional<std::string> LampPicture(Lamp lamp) {
  if (lamp == kHealthLamp) return HealthPicture(GetUPSStage());
  return StateOf(lamp).picture;
}

std::string LampText(Lamp lamp) {
  if (lamp == kHealthLamp) return StageText.at(static_cast<size_t>(GetUPSStage()));
  return LangText[StateOf(lamp).text];
}

}  // namespace varek

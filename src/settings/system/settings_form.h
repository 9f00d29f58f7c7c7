// The rules of the system settings dialog, without a window: what its fields show when it opens,
// and the checks and changes behind its OK, in their order.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace varek {

/// The boxes of the dialog: two passwords, each with its repeat, then delays in minutes: those of
/// schedule and web, those on mains failure, and those on battery low, where the UPS comes first.
enum SettingsBox : size_t {
  kLogin,
  kLoginRepeat,
  kControl,
  kControlRepeat,
  kComputerDelay,
  kUpsDelay,
  kMainsFailureComputerDelay,
  kMainsFailureUpsDelay,
  kBatteryLowUpsDelay,
  kBatteryLowComputerDelay,
  kSettingsBoxes,
  /// Stands for the web port's field where a box's number is asked for.
  kWebPortBox = kSettingsBoxes
};

/// What shuts down on a mains failure and on a low battery.
enum DelaySwitch : size_t {
  kMainsFailureComputer,
  kMainsFailureUps,
  kBatteryLowComputer,
  kBatteryLowUps,
  kDelaySwitches
};

/// The choices of a port: USB, then COM 1 to COM 16.
constexpr int kPortChoices = 17;

/// Stands in a password's box for the password that is set; left there, it changes nothing.
constexpr char kPasswordMask[] = "**********";

/// What the fields of the dialog hold.
struct SettingsFields {
  std::string port;  ///< as PortChoice names it
  bool webEnabled = false;
  std::string webPort;
  std::array<std::string, kSettingsBoxes> boxes;
  bool autoSave = false;
  std::array<bool, kDelaySwitches> delaysOn{};
  bool eventPopup = false;
  bool celsius = false;
};

/// Why OK is refused: the number of the message and the box that it is about.
struct SettingsFault {
  size_t message;
  size_t box;
  bool operator==(const SettingsFault&) const = default;
};

/// The name of choice 0 to 16.
std::string PortChoice(int index);
/// The choice of a port number; a number without one gives a choice that does not exist.
int ChoiceOfPort(int16_t port);

/// The present settings as the dialog shows them when it opens.
SettingsFields PresentSettings();

/// Takes the fields into the settings, which are then to be saved. The first check that fails ends
/// it, and only what comes before that check has been taken: a password may have changed, and with
/// a wrong web port also the link.
std::optional<SettingsFault> ApplySettings(const SettingsFields& fields);

}  // namespace varek

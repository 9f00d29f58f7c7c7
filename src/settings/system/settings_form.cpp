#include "settings/system/settings_form.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "core/data_center.h"
#include "core/link_record.h"
#include "link/port_search.h"
#include "platform/text/text.h"

namespace varek {

namespace {

using Fault = std::optional<SettingsFault>;

constexpr std::ptrdiff_t kLeastPassword = 3;  ///< characters
constexpr double kWebPortEnd = 9999;
constexpr double kDelayEnd = 100;  ///< minutes

struct Password {
  size_t box;  ///< its repeat is the next one
  size_t differs;
  size_t tooShort;
  std::string Settings::*setting;
};
constexpr Password kPasswords[] = {{kLogin, 0, 8, &Settings::WebLoginPassword},
                                   {kControl, 1, 9, &Settings::WebControlPassword}};

/// The delays in the order of their boxes.
constexpr size_t kFirstDelayBox = kComputerDelay;
constexpr int16_t Settings::*kDelays[] = {
    &Settings::SystemShutdownBuffer, &Settings::UPSShutdownBuffer, &Settings::PowerFailSystemDelay,
    &Settings::PowerFailUPSDelay,    &Settings::BatLowUPSDelay,    &Settings::BatLowSystemDelay};
constexpr size_t kFirstDelayMessage = 10;

/// The computer must be down before the UPS cuts its output.
struct DelayPair {
  size_t longer;
  size_t shorter;
  size_t message;
};
constexpr DelayPair kDelayPairs[] = {{kUpsDelay, kComputerDelay, 4},
                                     {kMainsFailureUpsDelay, kMainsFailureComputerDelay, 5},
                                     {kBatteryLowUpsDelay, kBatteryLowComputerDelay, 6}};

/// A delay is taken when the box `judged` is within the limit. The UPS's on battery low goes by the
/// computer's, so that the two change together or not at all.
struct LimitedDelay {
  size_t box;
  size_t judged;
};
constexpr LimitedDelay kLimitedDelays[] = {{kMainsFailureComputerDelay, kMainsFailureComputerDelay},
                                           {kMainsFailureUpsDelay, kMainsFailureUpsDelay},
                                           {kBatteryLowComputerDelay, kBatteryLowComputerDelay},
                                           {kBatteryLowUpsDelay, kBatteryLowComputerDelay}};

constexpr Flag Settings::*kDelaySettings[] = {
    &Settings::PowerFailSystemEnable, &Settings::PowerFailUPSEnable, &Settings::BatLowSystemEnable,
    &Settings::BatLowUPSEnable};

int16_t PortOfChoice(const std::string& name) {
  if (name.ends_with('B')) return kUsbPort;
  return platform::RoundToInt16(platform::LenientNumber(platform::Middle(name, 4)));
}

double Minutes(const SettingsFields& fields, size_t box) {
  return platform::LenientNumber(fields.boxes[box]);
}

std::ptrdiff_t Characters(const std::string& text) {
  return std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; });
}

Fault CheckRepeats(const SettingsFields& fields) {
  for (const Password& password : kPasswords) {
    const size_t repeat = password.box + 1;
    if (fields.boxes[password.box] != fields.boxes[repeat])
      return SettingsFault{password.differs, repeat};
  }
  return std::nullopt;
}

Fault TakePasswords(const SettingsFields& fields) {
  for (const Password& password : kPasswords) {
    const std::string& text = fields.boxes[password.box];
    if (text == kPasswordMask) continue;
    if (Characters(text) < kLeastPassword)
      return SettingsFault{password.tooShort, password.box + 1};
    DataCenter.settings.*password.setting = text;
  }
  return std::nullopt;
}

Fault CheckDelays(const SettingsFields& fields) {
  for (size_t i = 0; i < std::size(kDelays); ++i) {
    if (Minutes(fields, kFirstDelayBox + i) == 0)
      return SettingsFault{kFirstDelayMessage + i, kFirstDelayBox + i};
  }
  return std::nullopt;
}

Fault CheckDelayPairs(const SettingsFields& fields) {
  for (const DelayPair& pair : kDelayPairs) {
    if (Minutes(fields, pair.longer) <= Minutes(fields, pair.shorter))
      return SettingsFault{pair.message, pair.longer};
  }
  return std::nullopt;
}

/// The link and the console's switch are taken before the port is judged.
Fault TakePortAndWeb(const SettingsFields& fields) {
  SetPort(PortOfChoice(fields.port));
  DataCenter.settings.WebEnabled = ToFlag(fields.webEnabled);
  const double port = platform::LenientNumber(fields.webPort);
  if (port <= 0 || port >= kWebPortEnd) return SettingsFault{7, kWebPortBox};
  DataCenter.settings.WebPort = platform::RoundToInt16(port);
  return std::nullopt;
}

void TakeDelay(const SettingsFields& fields, size_t box) {
  DataCenter.settings.*kDelays[box - kFirstDelayBox] = platform::RoundToInt16(Minutes(fields, box));
}

void TakeDelays(const SettingsFields& fields) {
  TakeDelay(fields, kComputerDelay);
  TakeDelay(fields, kUpsDelay);
  for (const LimitedDelay& delay : kLimitedDelays) {
    if (Minutes(fields, delay.judged) < kDelayEnd) TakeDelay(fields, delay.box);
  }
}

void TakeSwitches(const SettingsFields& fields) {
  DataCenter.settings.UseCelsius = ToFlag(fields.celsius);
  DataCenter.settings.AutoSaveOnShutdown = ToFlag(fields.autoSave);
  for (size_t i = 0; i < kDelaySwitches; ++i)
    DataCenter.settings.*kDelaySettings[i] = ToFlag(fields.delaysOn[i]);
  DataCenter.settings.EventPopup = ToFlag(fields.eventPopup);
}

}  // namespace

std::string PortChoice(int index) { return index == 0 ? "USB" : "COM " + std::to_string(index); }

int ChoiceOfPort(int16_t port) { return port == kUsbPort ? 0 : port; }

SettingsFields PresentSettings() {
  SettingsFields fields;
  fields.port = PortChoice(ChoiceOfPort(Link.PortNumber));
  fields.webEnabled = DataCenter.settings.WebEnabled;
  fields.webPort = std::to_string(DataCenter.settings.WebPort);
  std::fill_n(fields.boxes.begin(), kFirstDelayBox, kPasswordMask);
  for (size_t i = 0; i < std::size(kDelays); ++i)
    fields.boxes[kFirstDelayBox + i] = std::to_string(DataCenter.settings.*kDelays[i]);
  fields.autoSave = DataCenter.settings.AutoSaveOnShutdown;
  for (size_t i = 0; i < kDelaySwitches; ++i)
    fields.delaysOn[i] = DataCenter.settings.*kDelaySettings[i];
  fields.eventPopup = DataCenter.settings.EventPopup;
  fields.celsius = DataCenter.settings.UseCelsius;
  return fields;
}

std::optional<SettingsFault> ApplySettings(const SettingsFields& fields) {
  for (const auto step :
       {CheckRepeats, TakePasswords, CheckDelays, CheckDelayPairs, TakePortAndWeb}) {
    if (const Fault fault = step(fields)) return fault;
  }
  TakeDelays(fields);
  TakeSwitches(fields);
  return std::nullopt;
}

}  // namespace varek

// The live state: the one record that the whole program shares. The parsers, the link supervisor
// and the settings write it; everything else reads it. An accessor exists where a value is
// computed. One thread: a reader between two polls sees the values of the last complete reply. Code
// that pumps events while it holds a value must expect it to have changed.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace varek {

/// A boolean of the record: 0 is clear, -1 (all bits set) is set.
using Flag = int16_t;
constexpr Flag kClear = 0;
constexpr Flag kSet = -1;
constexpr Flag ToFlag(bool value) { return value ? kSet : kClear; }

constexpr int kEventCount = 12;
constexpr int kDebugLineCount = 10;

/// From the status reply. Live: zero without a link.
struct Readings {
  float InputVoltage = 0;       ///< volts
  float InputFaultVoltage = 0;  ///< volts at the last fault; kept, nothing reads it
  float OutputVoltage = 0;      ///< volts; above 0 while the output is alive
  int16_t LoadPercent = 0;
  float Frequency = 0;       ///< hertz
  float BatteryVoltage = 0;  ///< volts: of a cell (on-line unit) or of the string (off-line unit)
  float Temperature = 0;     ///< degrees Celsius as received, never converted here
};

/// From the status reply; a lost link leaves them as they were last.
struct StatusFlags {
  Flag Utility = kClear;  ///< the mains have failed, the unit runs on its battery
  Flag BatLow = kClear;
  Flag Bypass = kClear;  ///< on-line unit: bypass; off-line unit: buck when set, boost when clear
  Flag UPSFailed = kClear;
  Flag UPStype = kClear;  ///< set: off-line unit; clear: on-line unit
  Flag TestProgress = kClear;
  Flag ShutdownActive = kClear;
  Flag Beeper = kClear;
};

/// From the rating reply. A rated voltage of 0 means not yet received: the poll cycle goes on
/// asking.
struct Ratings {
  float RatingVoltage = 0;         ///< volts
  int16_t RatingCurrent = 0;       ///< amperes
  float RatingBatteryVoltage = 0;  ///< volts, in blocks of 12
  float RatingFrequency = 0;       ///< hertz
};

/// From the identification reply, as text for people.
struct Identity {
  std::string UPSCompany;
  std::string UPSModel;
  std::string UPSVersion;
};

/// In the order of the configuration file, which is the only place that keeps them.
struct Settings {
  Flag AutoSearchPort = kClear;
  int16_t SystemShutdownBuffer = 0;  ///< minutes
  int16_t UPSShutdownBuffer = 0;     ///< minutes
  Flag UseCelsius = kClear;
  int16_t WebPort = 0;
  Flag WebEnabled = kClear;
  std::string WebLoginPassword;
  std::string WebControlPassword;
  Flag AutoSaveOnShutdown = kClear;
  int16_t LanguageIndex = 0;  ///< 0 English, 1 traditional Chinese, 2 simplified Chinese
  std::string WebLanguageFolder;
  std::array<Flag, kEventCount> MailEventEnable{};
  std::string MailServer;
  std::string MailSenderName;
  std::string MailSenderAddress;
  std::string MailRecipientName;
  std::string MailRecipientAddress;
  std::string MailSubject;
  std::array<std::string, kEventCount> MailEventText;
  std::array<Flag, kEventCount> SmsEventEnable{};
  int16_t SmsGateway = 0;
  std::string SmsAccount;
  std::string SmsPassword;
  std::string SmsNumber;
  std::string SmsApiId;
  std::array<std::string, kEventCount> SmsEventText;
  int16_t PowerFailSystemDelay = 0;  ///< minutes
  int16_t PowerFailUPSDelay = 0;     ///< minutes
  int16_t BatLowSystemDelay = 0;     ///< minutes
  int16_t BatLowUPSDelay = 0;        ///< minutes
  Flag PowerFailSystemEnable = kClear;
  Flag PowerFailUPSEnable = kClear;
  Flag BatLowSystemEnable = kClear;
  Flag BatLowUPSEnable = kClear;
  Flag EventPopup = kClear;
};

/// An event whose latch is set has been raised and is not raised again until its cause has gone.
struct Latches {
  Flag BatLowLatched = kClear;
  Flag PowerFailLatched = kClear;
  Flag OverloadLatched = kClear;
  Flag UPSFailLatched = kClear;
  Flag TestLatched = kClear;
};

struct DataCenterRecord {
  Readings readings;
  StatusFlags flags;
  Ratings ratings;
  Identity identity;
  Settings settings;
  Latches latches;

  Flag HasTemperature = kClear;  ///< the unit reports a usable temperature
  Flag HasLoad = kClear;         ///< the unit reports a usable load

  Flag IsConnect = kClear;   ///< the link is up
  int16_t UPSStage = 0;      ///< status code of the last once-a-second evaluation
  int16_t UPSStageLast = 0;  ///< status code for which the tray was last changed
  Flag DatabaseReady = kClear;
  Flag ExitInProgress = kClear;
  int16_t OSKind = 0;

  /// Index = number of the window; set while it is loaded.
  std::array<Flag, 16> FormOpen{};
  /// The newest first.
  std::array<std::string, kDebugLineCount> DebugLines;
};

extern DataCenterRecord DataCenter;

float GetLoadPercent();
/// The frequency as plain decimal text, for direct display.
std::string GetFrequency();
/// In the display unit; Fahrenheit is cut, not rounded, to one decimal.
float GetTemperature();

/// Today as "yyyymmdd".
std::string GetTodayText();

/// Sets HasTemperature and HasLoad by the kind of the unit: neither without a link, without a
/// version, or for units of the bare series "QZ0"; an off-line unit has no temperature.
void DeriveCapabilities();

/// The status code, computed anew: 0 normal, 1 no link, 2 charging, 3 battery test,
/// 4 over-temperature, 5 fault, 6 overload, 7 on battery, 8 on battery and battery low.
int16_t GetUPSStage();

/// Battery level 0 to 100 for a voltage as the unit reports it. Up to the top of the scale an
/// on-line unit reads at most 90 and an off-line unit 91; only above it 100. 0 while an off-line
/// unit's rated battery voltage is not known.
int BatteryPercent(float voltage);

/// `LanguageIndex` as decimal text.
std::string GetLanguageIndex();
/// Stores the index; 0 to 2 also choose the folder of web pages.
void SetLanguageIndex(int16_t value);

/// What a lost link leaves behind: every reading, rating and identification text is 0 or empty,
/// the eight status flags keep their last values until a new reply changes them.
void ClearLiveValues();

}  // namespace varek

#include "web/server/template_engine.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "core/data_center.h"
#include "platform/errors/guard.h"
#include "platform/errors/runtime_error.h"
#include "platform/text/text.h"
#include "platform/time/clock.h"
#include "platform/time/events.h"
#include "texts/language.h"
#include "web/pages/chart_pages.h"
#include "web/pages/event_pages.h"
#include "web/pages/page_files.h"
#include "web/session/session.h"

namespace varek {

namespace {

constexpr std::string_view kOpen = "<%";
constexpr std::string_view kClose = "%>";
/// The search goes on this far into a replacement.
constexpr size_t kResume = kOpen.size();
/// More markers than any page has: a text from the wire that holds markers would expand forever.
constexpr int kMostMarkers = 10000;

// Full scales of the bars, in the units of what they show.
constexpr int kBatteryScale = 120;
constexpr int kLoadScale = 120;
constexpr int kFrequencyScale = 100;
constexpr int kTemperatureScale = 150;

/// What one marker of a page hands on to the next, and what requests have left for all pages.
struct Expansion {
  PageValues& values;
  std::string Replacement = {};
  int MaxVoltage = 0;
};

/// A key whose condition fails gives nothing: the text of the key before it then stands in its
/// place. Pages keep such keys inside a comment.
using KeyText = std::optional<std::string>;

int BatteryLevel() { return std::max(BatteryPercent(DataCenter.readings.BatteryVoltage), 0); }

/// A bar's length in percent of its scale.
std::string Percent(double value, int scale) {
  if (scale == 0)
    throw platform::RuntimeError(platform::errors::kDivisionByZero, "the scale of a bar is 0");
  return std::to_string(static_cast<int64_t>(platform::RoundHalfEven(value * 100)) / scale);
}

std::string Bit(bool value) { return value ? "1" : "0"; }

std::string Quoted(const std::string& name) { return '"' + name + '"'; }

KeyText Temperature() {
  if (!DataCenter.HasTemperature) return {};
  return platform::SingleText(GetTemperature()) + (DataCenter.settings.UseCelsius ? " C" : " F");
}

KeyText UpsMode() {
  if (DataCenter.flags.UPStype)
    return DataCenter.flags.Bypass ? "OFF-Line Buck mode" : "OFF-Line Boost mode";
  return DataCenter.flags.Bypass ? "BYPASS" : "On Line ";
}

KeyText InputPower() {
  if (!DataCenter.flags.Utility) return LangText[texts::kMainsPresent];
  return "<font color='#FF0000'>" + LangText[texts::kMainsFailed] + "</font> ";
}

KeyText BatteryPicture() {
  if (DataCenter.flags.UPSFailed) return Quoted("BatteryFail.gif");
  const bool resting = !DataCenter.flags.Utility && !DataCenter.flags.TestProgress;
  return Quoted(resting ? "BatteryOK.gif" : "batteryOKTest.gif");
}

KeyText TypePicture() {
  const std::string type = DataCenter.flags.UPStype ? "Off" : "On";
  if (DataCenter.flags.Utility || DataCenter.flags.TestProgress) return Quoted(type + "Fail.gif");
  return Quoted(type + (DataCenter.flags.Bypass ? "Pass.gif" : "Normal.gif"));
}

KeyText ChooseMaxVoltage(Expansion& page) {
  const float rating = DataCenter.ratings.RatingVoltage;
  page.MaxVoltage = rating <= 150 ? 150 : rating <= 250 ? 250 : 420;
  return std::to_string(page.MaxVoltage);
}

KeyText LoadPercentBar() {
  if (!DataCenter.HasLoad) return {};
  return Percent(DataCenter.readings.LoadPercent, kLoadScale);
}

KeyText TemperatureBar() {
  if (!DataCenter.HasTemperature) return {};
  return Percent(GetTemperature(), kTemperatureScale);
}

KeyText DrawCharts(Expansion& page) {
  makepic(LastHourChart::Battery, page.values);
  makepic(LastHourChart::Temperature, page.values);
  return "";
}

KeyText FetchFiveEvents(Expansion& page) {
  getFiveEvent(page.values);
  return "";
}

KeyText DrawControlKey() { return ControlKey = NewKey(); }

KeyText LoadText() {
  if (!DataCenter.HasLoad) return {};
  return std::to_string(DataCenter.readings.LoadPercent);
}

/// Hides what stands between two comment keys, on a unit that lacks the sensor.
std::string Unless(bool sensor, const std::string& comment) { return sensor ? "" : comment; }

struct Key {
  std::string_view name;
  KeyText (*text)(Expansion& page);
};

// Pages hold these names, odd spellings included: do not change them.
constexpr Key kKeys[] = {
    {"GETTIME", [](Expansion&) -> KeyText { return platform::FormatTime(platform::Now()); }},
    {"GETUPSSTAGE",
     [](Expansion&) -> KeyText { return StageText.at(static_cast<size_t>(DataCenter.UPSStage)); }},
    {"GETINPUTVOLTAGE",
     [](Expansion&) -> KeyText { return platform::SingleText(DataCenter.readings.InputVoltage); }},
    {"GETOUTPUTVOLTAGE",
     [](Expansion&) -> KeyText { return platform::SingleText(DataCenter.readings.OutputVoltage); }},
    {"GETSTRTIME", [](Expansion& page) -> KeyText { return page.values.ChartStartTime; }},
    {"GETENDTIME", [](Expansion& page) -> KeyText { return page.values.ChartEndTime; }},
    {"VARUPStype", [](Expansion&) -> KeyText { return Bit(DataCenter.flags.UPStype); }},
    {"VARUtility", [](Expansion&) -> KeyText { return Bit(DataCenter.flags.Utility); }},
    {"VARBypass", [](Expansion&) -> KeyText { return Bit(DataCenter.flags.Bypass); }},
    {"VARIsConnect", [](Expansion&) -> KeyText { return Bit(DataCenter.IsConnect); }},
    {"VARBatLow", [](Expansion&) -> KeyText { return Bit(DataCenter.flags.BatLow); }},
    {"VARUPSFailed", [](Expansion&) -> KeyText { return Bit(DataCenter.flags.UPSFailed); }},
    {"VARTestProgress", [](Expansion&) -> KeyText { return Bit(DataCenter.flags.TestProgress); }},
    {"VARShutdownActive",
     [](Expansion&) -> KeyText { return Bit(DataCenter.flags.ShutdownActive); }},
    {"VARBeeper", [](Expansion&) -> KeyText { return Bit(DataCenter.flags.Beeper); }},
    {"GETTEMPLATER", [](Expansion&) { return Temperature(); }},
    {"GETBATVOLTAHE", [](Expansion&) -> KeyText { return std::to_string(BatteryLevel()); }},
    {"GETFrequency", [](Expansion&) -> KeyText { return GetFrequency(); }},
    {"GETVarLoad", [](Expansion&) { return LoadText(); }},
    {"GETUPSMODE", [](Expansion&) { return UpsMode(); }},
    {"GETINPOWERON", [](Expansion&) { return InputPower(); }},
    {"GETCompanyName",
     [](Expansion&) -> KeyText { return platform::ShownText(DataCenter.identity.UPSCompany); }},
    {"GETUPSModel",
     [](Expansion&) -> KeyText { return platform::ShownText(DataCenter.identity.UPSModel); }},
    {"GETUPSVersion",
     [](Expansion&) -> KeyText { return platform::ShownText(DataCenter.identity.UPSVersion); }},
    {"GETBatteryOKFileName", [](Expansion&) { return BatteryPicture(); }},
    {"GETRatingVoltage",
     [](Expansion&) -> KeyText { return platform::SingleText(DataCenter.ratings.RatingVoltage); }},
    {"GETRatingCurrent",
     [](Expansion&) -> KeyText { return std::to_string(DataCenter.ratings.RatingCurrent); }},
    {"GETMAXVOL", ChooseMaxVoltage},
    {"GETRatingFrequebcy",
     [](Expansion&) -> KeyText {
       return platform::SingleText(DataCenter.ratings.RatingFrequency);
     }},
    {"INVOLP",
     [](Expansion& page) -> KeyText {
       return Percent(DataCenter.readings.InputVoltage, page.MaxVoltage);
     }},
    {"OUTVOLP",
     [](Expansion& page) -> KeyText {
       return Percent(DataCenter.readings.OutputVoltage, page.MaxVoltage);
     }},
    {"BATP", [](Expansion&) -> KeyText { return Percent(BatteryLevel(), kBatteryScale); }},
    {"HZP",
     [](Expansion&) -> KeyText {
       return Percent(platform::LenientNumber(GetFrequency()), kFrequencyScale);
     }},
    {"LOADP", [](Expansion&) { return LoadPercentBar(); }},
    {"TEMPP", [](Expansion&) { return TemperatureBar(); }},
    {"DRAWBETLINE", DrawCharts},
    {"GetTypeName", [](Expansion&) { return TypePicture(); }},
    {"Do5EVENT", FetchFiveEvents},
    {"Event1", [](Expansion& page) -> KeyText { return page.values.FiveEventText[0]; }},
    {"Event2", [](Expansion& page) -> KeyText { return page.values.FiveEventText[1]; }},
    {"Event3", [](Expansion& page) -> KeyText { return page.values.FiveEventText[2]; }},
    {"Event4", [](Expansion& page) -> KeyText { return page.values.FiveEventText[3]; }},
    {"Event5", [](Expansion& page) -> KeyText { return page.values.FiveEventText[4]; }},
    {"EventTime1", [](Expansion& page) -> KeyText { return page.values.FiveEventTime[0]; }},
    {"EventTime2", [](Expansion& page) -> KeyText { return page.values.FiveEventTime[1]; }},
    {"EventTime3", [](Expansion& page) -> KeyText { return page.values.FiveEventTime[2]; }},
    {"EventTime4", [](Expansion& page) -> KeyText { return page.values.FiveEventTime[3]; }},
    {"EventTime5", [](Expansion& page) -> KeyText { return page.values.FiveEventTime[4]; }},
    {"GETKEY", [](Expansion&) -> KeyText { return LoginKey; }},
    {"GETCONTROLKEY", [](Expansion&) { return DrawControlKey(); }},
    {"GetLoadOutL", [](Expansion&) -> KeyText { return Unless(DataCenter.HasLoad, "<!--"); }},
    {"GetLoadOutR", [](Expansion&) -> KeyText { return Unless(DataCenter.HasLoad, "-->"); }},
    {"GetTempOutL",
     [](Expansion&) -> KeyText { return Unless(DataCenter.HasTemperature, "<!--"); }},
    {"GetTempOutR", [](Expansion&) -> KeyText { return Unless(DataCenter.HasTemperature, "-->"); }},
    {"DelayShuntDownTime",
     [](Expansion&) -> KeyText { return std::to_string(DataCenter.settings.UPSShutdownBuffer); }},
};

/// An unknown key gives an empty text, so that it disappears from the page.
KeyText TextOf(std::string_view name, Expansion& page) {
  const auto* key = std::ranges::find(kKeys, name, &Key::name);
  return key == std::end(kKeys) ? KeyText("") : key->text(page);
}

}  // namespace

void ExpandTemplate(std::string& text, PageValues& values) {
  platform::DoEvents();
  Expansion page{values};
  int markers = 0;
  for (size_t open = text.find(kOpen); open != std::string::npos;) {
    const size_t keyStart = open + kOpen.size();
    const size_t keyEnd = text.find(kClose, keyStart);
    if (keyEnd == std::string::npos || ++markers > kMostMarkers) {
      throw platform::RuntimeError(platform::errors::kInvalidCall, "a marker without its end");
    }
    const KeyText found = TextOf(text.substr(keyStart, keyEnd - keyStart), page);
    if (found) page.Replacement = *found;
    text.replace(open, keyEnd + kClose.size() - open, page.Replacement);
    open = text.find(kOpen, open + std::min(kResume, page.Replacement.size()));
  }
}

std::string ReadPage(const std::string& fullName, PageValues& values) {
  std::string text = ReadSource(fullName);
  platform::IgnoreErrors([&] { ExpandTemplate(text, values); });
  return text;
}

}  // namespace varek

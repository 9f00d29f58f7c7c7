// The template engine: replaces the markers <%KEY%> of a page with live values, status words,
// picture names and keys.

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "core/data_center.h"
#include "platform/errors/runtime_error.h"
#include "platform/text/text.h"
#include "platform/time/clock.h"
#include "platform/time/events.h"
#include "texts/language.h"
#include "web/charts/charts.h"
#include "web/pages/event_pages.h"
#include "web/pages/page_files.h"
#include "web/pages/session.h"

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

/// What one marker of a page hands on to the next.
struct Expansion {
  std::string Replacement;
  int MaxVoltage = 0;
};

/// A key whose condition fails gives nothing: the text of the key before it then stands in its
/// place. Pages keep such keys inside a comment.
using KeyText = std::optional<std::string>;

int BatteryLevel() { return std::max(BatteryPercent(GetBatteryVoltage()), 0); }

/// A bar's length in percent of its scale.
std::string Percent(double value, int scale) {
  if (scale == 0)
    throw platform::RuntimeError(platform::errors::kDivisionByZero, "the scale of a bar is 0");
  return std::to_string(static_cast<int64_t>(platform::RoundHalfEven(value * 100)) / scale);
}

std::string Bit(bool value) { return value ? "1" : "0"; }

std::string Quoted(const std::string& name) { return '"' + name + '"'; }

KeyText Temperature() {
  if (!GetHasTemperature()) return {};
  return platform::SingleText(GetTemperature()) + (DataCenter.UseCelsius ? " C" : " F");
}

KeyText UpsMode() {
  if (GetUPStype()) return GetBypass() ? "OFF-Line Buck mode" : "OFF-Line Boost mode";
  return GetBypass() ? "BYPASS" : "On Line ";
}

KeyText InputPower() {
  if (!GetUtility()) return LangText[texts::kMainsPresent];
  return "<font color='#FF0000'>" + LangText[texts::kMainsFailed] + "</font> ";
}

KeyText BatteryPicture() {
  if (GetUPSFailed()) return Quoted("BatteryFail.gif");
  const bool resting = !GetUtility() && !GetTestProgress();
  return Quoted(resting ? "BatteryOK.gif" : "batteryOKTest.gif");
}

KeyText TypePicture() {
  const std::string type = GetUPStype() ? "Off" : "On";
  if (GetUtility() || GetTestProgress()) return Quoted(type + "Fail.gif");
  return Quoted(type + (GetBypass() ? "Pass.gif" : "Normal.gif"));
}

KeyText ChooseMaxVoltage(Expansion& page) {
  const float rating = GetRatingVoltage();
  page.MaxVoltage = rating <= 150 ? 150 : rating <= 250 ? 250 : 420;
  return std::to_string(page.MaxVoltage);
}

KeyText LoadPercentBar() {
  if (!GetHasLoad()) return {};
  return Percent(DataCenter.LoadPercent, kLoadScale);
}

KeyText TemperatureBar() {
  if (!GetHasTemperature()) return {};
  return Percent(GetTemperature(), kTemperatureScale);
}

KeyText DrawCharts() {
  makepic(1);
  makepic(2);
  return "";
}

KeyText FetchFiveEvents() {
  getFiveEvent();
  return "";
}

KeyText DrawControlKey() { return ControlKey = NewKey(); }

KeyText LoadText() {
  if (!GetHasLoad()) return {};
  return std::to_string(DataCenter.LoadPercent);
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
     [](Expansion&) -> KeyText { return platform::SingleText(GetInputVoltage()); }},
    {"GETOUTPUTVOLTAGE",
     [](Expansion&) -> KeyText { return platform::SingleText(GetOutputVoltage()); }},
    {"GETSTRTIME", [](Expansion&) -> KeyText { return ChartStartTime; }},
    {"GETENDTIME", [](Expansion&) -> KeyText { return ChartEndTime; }},
    {"VARUPStype", [](Expansion&) -> KeyText { return Bit(GetUPStype()); }},
    {"VARUtility", [](Expansion&) -> KeyText { return Bit(GetUtility()); }},
    {"VARBypass", [](Expansion&) -> KeyText { return Bit(GetBypass()); }},
    {"VARIsConnect", [](Expansion&) -> KeyText { return Bit(GetIsConnect()); }},
    {"VARBatLow", [](Expansion&) -> KeyText { return Bit(GetBatLow()); }},
    {"VARUPSFailed", [](Expansion&) -> KeyText { return Bit(GetUPSFailed()); }},
    {"VARTestProgress", [](Expansion&) -> KeyText { return Bit(GetTestProgress()); }},
    {"VARShutdownActive", [](Expansion&) -> KeyText { return Bit(GetShutdownActive()); }},
    {"VARBeeper", [](Expansion&) -> KeyText { return Bit(GetBeeper()); }},
    {"GETTEMPLATER", [](Expansion&) { return Temperature(); }},
    {"GETBATVOLTAHE", [](Expansion&) -> KeyText { return std::to_string(BatteryLevel()); }},
    {"GETFrequency", [](Expansion&) -> KeyText { return GetFrequency(); }},
    {"GETVarLoad", [](Expansion&) { return LoadText(); }},
    {"GETUPSMODE", [](Expansion&) { return UpsMode(); }},
    {"GETINPOWERON", [](Expansion&) { return InputPower(); }},
    {"GETCompanyName", [](Expansion&) -> KeyText { return platform::ShownText(GetUPSCompany()); }},
    {"GETUPSModel", [](Expansion&) -> KeyText { return platform::ShownText(GetUPSModel()); }},
    {"GETUPSVersion", [](Expansion&) -> KeyText { return platform::ShownText(GetUPSVersion()); }},
    {"GETBatteryOKFileName", [](Expansion&) { return BatteryPicture(); }},
    {"GETRatingVoltage",
     [](Expansion&) -> KeyText { return platform::SingleText(GetRatingVoltage()); }},
    {"GETRatingCurrent", [](Expansion&) -> KeyText { return std::to_string(GetRatingCurrent()); }},
    {"GETMAXVOL", ChooseMaxVoltage},
    {"GETRatingFrequebcy",
     [](Expansion&) -> KeyText { return platform::SingleText(GetRatingFrequency()); }},
    {"INVOLP",
     [](Expansion& page) -> KeyText { return Percent(GetInputVoltage(), page.MaxVoltage); }},
    {"OUTVOLP",
     [](Expansion& page) -> KeyText { return Percent(GetOutputVoltage(), page.MaxVoltage); }},
    {"BATP", [](Expansion&) -> KeyText { return Percent(BatteryLevel(), kBatteryScale); }},
    {"HZP",
     [](Expansion&) -> KeyText {
       return Percent(platform::LenientNumber(GetFrequency()), kFrequencyScale);
     }},
    {"LOADP", [](Expansion&) { return LoadPercentBar(); }},
    {"TEMPP", [](Expansion&) { return TemperatureBar(); }},
    {"DRAWBETLINE", [](Expansion&) { return DrawCharts(); }},
    {"GetTypeName", [](Expansion&) { return TypePicture(); }},
    {"Do5EVENT", [](Expansion&) { return FetchFiveEvents(); }},
    {"Event1", [](Expansion&) -> KeyText { return FiveEventText[0]; }},
    {"Event2", [](Expansion&) -> KeyText { return FiveEventText[1]; }},
    {"Event3", [](Expansion&) -> KeyText { return FiveEventText[2]; }},
    {"Event4", [](Expansion&) -> KeyText { return FiveEventText[3]; }},
    {"Event5", [](Expansion&) -> KeyText { return FiveEventText[4]; }},
    {"EventTime1", [](Expansion&) -> KeyText { return FiveEventTime[0]; }},
    {"EventTime2", [](Expansion&) -> KeyText { return FiveEventTime[1]; }},
    {"EventTime3", [](Expansion&) -> KeyText { return FiveEventTime[2]; }},
    {"EventTime4", [](Expansion&) -> KeyText { return FiveEventTime[3]; }},
    {"EventTime5", [](Expansion&) -> KeyText { return FiveEventTime[4]; }},
    {"GETKEY", [](Expansion&) -> KeyText { return LoginKey; }},
    {"GETCONTROLKEY", [](Expansion&) { return DrawControlKey(); }},
    {"GetLoadOutL", [](Expansion&) -> KeyText { return Unless(GetHasLoad(), "<!--"); }},
    {"GetLoadOutR", [](Expansion&) -> KeyText { return Unless(GetHasLoad(), "-->"); }},
    {"GetTempOutL", [](Expansion&) -> KeyText { return Unless(GetHasTemperature(), "<!--"); }},
    {"GetTempOutR", [](Expansion&) -> KeyText { return Unless(GetHasTemperature(), "-->"); }},
    {"DelayShuntDownTime",
     [](Expansion&) -> KeyText { return std::to_string(DataCenter.UPSShutdownBuffer); }},
};

/// An unknown key gives an empty text, so that it disappears from the page.
KeyText TextOf(std::string_view name, Expansion& page) {
  const auto* key = std::ranges::find(kKeys, name, &Key::name);
  return key == std::end(kKeys) ? KeyText("") : key->text(page);
}

}  // namespace

void ExpandTemplate(std::string& text) {
  platform::DoEvents();
  Expansion page;
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

}  // namespace varek

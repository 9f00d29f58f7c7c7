#include "views/oscilloscope/scope_tip.h"

#include <cstdlib>

#include "platform/text/text.h"
#include "texts/language.h"
#include "views/oscilloscope/curves/scope_colors.h"

namespace varek {

namespace {

std::string CurveText(int curve, int32_t second, const ScopeData& data) {
  const float sample = data.SampleAt(curve, second);
  const std::string reading =
      sample == kNoSample ? LangText[texts::kScopeNoSample] : platform::SingleText(sample);
  return CurveName(curve) + "\n" + reading + "\n" +
         data.TimeText(second, TimeStyle::HourMinuteSecond);
}

/// Markers of one type look alike: the nearest is meant.
std::string EventTipText(int type, int32_t second, const ScopeData& data) {
  const ScopeEvent* nearest = nullptr;
  for (const ScopeEvent& event : data.EventList()) {
    if (event.type != type) continue;
    if (!nearest || std::abs(event.time - second) < std::abs(nearest->time - second))
      nearest = &event;
  }
  const std::string& name = EventText.at(static_cast<size_t>(type - 1));
  return nearest ? name + "\n" + nearest->text : name;
}

}  // namespace

const std::string& CurveName(int curve) {
  return LangText[kMeasureTexts.at(static_cast<size_t>(curve))];
}

std::optional<ScopeTip> TipAt(const platform::Surface& plot, int x, int y, const ScopeData& data,
                              const ScopeView& view) {
  const int code = CodeAt(plot, x, y);
  if (code == kNoCode) return {};
  const auto second = static_cast<int32_t>(
      platform::RoundHalfEven(double(x) / plot.Width() * view.SpanX() + view.Left()));
  if (IsEventCode(code))
    return ScopeTip{code, EventTipText(code - kFirstEventCode + 1, second, data)};
  return ScopeTip{code, CurveText(code - 1, second, data)};
}

platform::Color TipTextColor(platform::Color back) {
  const auto complement = [](uint8_t part) { return static_cast<uint8_t>(255 - part); };
  return {complement(back.red), complement(back.green), complement(back.blue)};
}

int TipPlace(int pointer, int length, int room) {
  return pointer + length > room ? pointer - length : pointer;
}

}  // namespace varek

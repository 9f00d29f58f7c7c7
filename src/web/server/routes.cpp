#include "web/server/routes.h"

#include <algorithm>
#include <string_view>

#include "platform/time/clock.h"
#include "web/pages/chart_pages.h"
#include "web/pages/data_page.h"
#include "web/pages/event_pages.h"
#include "web/pages/schedule_pages.h"
#include "web/server/remote_control.h"
#include "web/server/request.h"

namespace varek {

namespace {

constexpr char kField[] = "T1=";
constexpr char kOtherField[] = "T2=";

struct GetRoute {
  std::string_view path;
  void (*handler)(const platform::DateTime& today);
};

using Day = platform::DateTime;

constexpr GetRoute kGetRoutes[] = {
    {"/schedule.htm", [](const Day& today) { ScheduleMonthPage(today.year, today.month); }},
    {"/scheduleevent.htm",
     [](const Day& today) { MakeEventPage1(today.year, today.month, today.day); }},
    {"/eventselect.htm", [](const Day& today) { EventMonthPage(today.year, today.month); }},
};

using FieldHandler = void (*)(const std::string& value, PageValues& values);

/// For a handler that leaves nothing for its page to print.
template <void (*handler)(const std::string& value)>
void WithoutValues(const std::string& value, PageValues&) {
  handler(value);
}

struct PostRoute {
  std::string_view path;
  FieldHandler handler;
  FieldHandler otherHandler = nullptr;  ///< for the second field, where the path takes either
  bool fieldIsOptional = false;
};

constexpr PostRoute kPostRoutes[] = {
    {"/Mundata.htm", WithoutValues<DataRequest>},
    {"/showpic.htm", ChartRequest},
    {"/showpic1.htm", ChartRequest},
    {"/scheduleshow.htm", WithoutValues<ScheduleMonthRequest>},
    {"/scheduleevent.htm", WithoutValues<MakeeventPage>, WithoutValues<AddEventPage>, true},
    {"/eventdata.htm", WithoutValues<EventDayRequest>},
    {"/controlmain.htm", WithoutValues<AnyControl>},
    {"/eventselect.htm", WithoutValues<EventMonthRequest>},
};

bool RunOn(FieldHandler handler, const std::string& request, const char* field,
           PageValues& values) {
  if (!handler) return false;
  const auto value = FieldOf(request, field);
  if (value) handler(*value, values);
  return value.has_value();
}

}  // namespace

void RunGetRoute(const std::string& path) {
  const auto* route = std::ranges::find(kGetRoutes, path, &GetRoute::path);
  if (route != std::end(kGetRoutes)) route->handler(platform::Now());
}

bool RunPostRoute(const std::string& path, const std::string& request, PageValues& values) {
  const auto* route = std::ranges::find(kPostRoutes, path, &PostRoute::path);
  if (route == std::end(kPostRoutes)) return true;
  return RunOn(route->handler, request, kField, values) ||
         RunOn(route->otherHandler, request, kOtherField, values) || route->fieldIsOptional;
}

}  // namespace varek

#include "records/shutdown/countdown_view.h"

#include <utility>

#include "platform/errors/guard.h"

namespace varek {

namespace {

class NoView final : public CountdownView {
 public:
  void Show() override {}
  void SetCaption(const std::string&) override {}
  void ApplyLanguage(size_t) override {}
  void SetTime(const std::string&) override {}
};

CountdownViewMaker& Maker() {
  static CountdownViewMaker make;
  return make;
}

}  // namespace

void SetCountdownViewMaker(CountdownViewMaker make) { Maker() = std::move(make); }

std::unique_ptr<CountdownView> MakeCountdownView(CountdownPlace place,
                                                 std::function<void()> cancel) {
  std::unique_ptr<CountdownView> view;
  // A window that can't be made must not keep the countdown from running.
  if (Maker())
    platform::Guarded("countdown view", [&] { view = Maker()(place, std::move(cancel)); });
  if (!view) view = std::make_unique<NoView>();
  return view;
}

}  // namespace varek

#include "views/kit/windows/design_layout.h"

#include <QWidget>
#include <algorithm>

#include "platform/text/text.h"

namespace varek {

namespace {

int ScaleValue(int design, int designClient, int client) {
  return static_cast<int>(platform::RoundHalfEven(double(design) * client / designClient));
}

}  // namespace

QRect ScaleRect(const QRect& design, QSize designClient, QSize client) {
  if (designClient.isEmpty()) return design;
  const auto x = [&](int value) { return ScaleValue(value, designClient.width(), client.width()); };
  const auto y = [&](int value) {
    return ScaleValue(value, designClient.height(), client.height());
  };
  return {x(design.x()), y(design.y()), x(design.width()), y(design.height())};
}

void DesignLayout::Resizeinit(QSize client, const std::vector<QWidget*>& parts) {
  designClient_ = client;
  parts_.clear();
  for (QWidget* part : parts) parts_.push_back({part, part->geometry()});
  std::ranges::stable_sort(parts_, {}, [](const Part& part) { return part.design.top(); });
}

/// The lowest row of pixels that the parts designed above `part` take up.
int DesignLayout::BottomAbove(const Part& part) const {
  int bottom = -1;
  for (const Part& above : parts_) {
    const bool sharesPlace = above.widget->parentWidget() == part.widget->parentWidget();
    if (sharesPlace && above.design.bottom() < part.design.top())
      bottom = std::max(bottom, above.widget->geometry().bottom());
  }
  return bottom;
}

void DesignLayout::Apply(QSize client) const {
  for (const Part& part : parts_) {
    QRect place = ScaleRect(part.design, designClient_, client);
    place.setTop(std::max(place.top(), BottomAbove(part) + 1));
    place.setHeight(std::max(place.height(), part.widget->minimumSizeHint().height()));
    part.widget->setGeometry(place);
  }
}

}  // namespace varek

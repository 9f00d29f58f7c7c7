#include "views/kit/design_layout.h"

#include <QWidget>

#include "platform/text.h"

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
}

void DesignLayout::Apply(QSize client) const {
  for (const Part& part : parts_)
    part.widget->setGeometry(ScaleRect(part.design, designClient_, client));
}

}  // namespace varek

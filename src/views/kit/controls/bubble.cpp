#include "views/kit/controls/bubble.h"

#include <algorithm>

#include "drawing/palette.h"
#include "views/kit/looks/colors.h"

namespace varek {

namespace {
constexpr int kLeftMargin = 15;
constexpr int kTopMargin = 5;
}  // namespace

Bubble::Bubble(QWidget* parent) : QLabel(parent) {
  setStyleSheet(QStringLiteral("background: %1; color: %2; border: 1px solid %3;")
                    .arg(ToQColor(palette::kFace).name(), ToQColor(palette::kText).name(),
                         ToQColor(palette::kAccent).name()));
  setContentsMargins(kLeftMargin - 1, kTopMargin - 1, kLeftMargin - 1, kTopMargin - 1);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setTextFormat(Qt::PlainText);
  hide();
}

void Bubble::ShowText(const std::string& text, QPoint place) {
  setText(QString::fromStdString(text));
  adjustSize();
  const int right = parentWidget()->width() - width();
  const int bottom = parentWidget()->height() - height();
  move(std::clamp(place.x(), 0, std::max(right, 0)), std::clamp(place.y(), 0, std::max(bottom, 0)));
  show();
  raise();
}

}  // namespace varek

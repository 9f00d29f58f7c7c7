// A button with a text, as the windows make it.
#pragma once

#include <QPushButton>
#include <functional>
#include <string>
#include <utility>

#include "platform/errors/guard.h"

namespace varek {

/// `act` runs guarded, and errors are reported under `place`.
inline QPushButton* MakeButton(QWidget* parent, std::string place, std::function<void()> act) {
  auto* button = new QPushButton(parent);
  QObject::connect(
      button, &QPushButton::clicked, parent,
      [place = std::move(place), act = std::move(act)] { platform::Guarded(place, act); });
  return button;
}

}  // namespace varek

// What a person entered into a box, as a setting takes it.
#pragma once

#include <QLineEdit>
#include <string>

#include "platform/text/text.h"

namespace varek {

/// A box keeps line breaks that were pasted, and shows blanks for them.
inline std::string OneLineOf(const QLineEdit& box) {
  return platform::OneLine(box.text().toStdString());
}

}  // namespace varek

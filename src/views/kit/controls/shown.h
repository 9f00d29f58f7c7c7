// Texts and controls as every window makes them.
#pragma once

#include <QString>
#include <string>

#include "texts/language.h"

namespace varek {

/// A text of the program as the toolkit's.
inline QString Shown(const std::string& text) { return QString::fromStdString(text); }

/// A text of the present language, by its number in the table.
inline QString Shown(size_t number) { return Shown(LangText[number]); }

/// `control`, which is found by `name` among its window's children.
template <typename Control>
Control* Named(Control* control, const char* name) {
  control->setObjectName(QString::fromLatin1(name));
  return control;
}

}  // namespace varek

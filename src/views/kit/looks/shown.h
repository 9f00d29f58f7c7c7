// Texts of the program as the toolkit's, for every window.
#pragma once

#include <QString>
#include <string>

#include "texts/language.h"

namespace varek {

inline QString Shown(const std::string& text) { return QString::fromStdString(text); }

/// A text of the present language, by its number in the table.
inline QString Shown(size_t number) { return Shown(LangText[number]); }

}  // namespace varek

// The sidecars' own texts: the rows of the program's language table that the program itself does
// not read.
#pragma once

#include <string>

#include "texts/text_numbers.h"

namespace sidecar {

/// The language that the program is set to, 0 to 2, from line 11 of config.qmz beside the sidecar;
/// 0 when that can't be read.
int ChosenLanguage();

/// Text `number` of varek::texts in `language` (0 to 2, anything else is read as 0). Empty, with a
/// line on standard error, when the table can't be read or has no such row.
std::string Text(size_t number, int language);

}  // namespace sidecar

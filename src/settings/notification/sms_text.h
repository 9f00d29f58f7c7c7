// How long a text message may be: a character of two bytes makes the whole message one of wide
// characters, of which less than half as many fit.
#pragma once

#include <string>

namespace varek {

/// The first 70 characters of a text that has a double-byte one, else the first 160; a shorter
/// text whole. Counts UTF-16 units and never leaves half a character.
std::u16string FitSmsText(const std::u16string& text);

}  // namespace varek

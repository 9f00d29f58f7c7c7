// The template engine: replaces the markers <%KEY%> of a page with live values, status words,
// picture names and keys.
#pragma once

#include <string>

#include "web/pages/page_values.h"

namespace varek {

/// Fills in the markers; those that draw or fetch leave in `values` what the markers behind them
/// print. Other handlers run once, at its head. An error (a marker without its end, a division by
/// zero) propagates; `text` is then what was expanded so far.
void ExpandTemplate(std::string& text, PageValues& values);

/// Reads a page whole, after other handlers have run once, and fills it in as far as that gets.
/// Throws RuntimeError 53 for a missing file.
std::string ReadPage(const std::string& fullName, PageValues& values);

}  // namespace varek

// UTF-8 as it comes from settings and from servers: never trusted to be whole. What is no valid
// UTF-8 reads as the replacement character, one for each byte that does not fit.
#pragma once

#include <string>
#include <string_view>

namespace sidecar {

std::u32string CodePoints(std::string_view bytes);

/// REQUIRES code points as CodePoints gives them.
std::string Utf8(std::u32string_view points);

/// `text` as valid UTF-8 on one line: line ends and all other control characters become blanks, so
/// that nothing breaks out of a log line or a mail header.
std::string OneLine(std::string_view text);

/// The first `count` characters of `text`, with "..." behind them where some are missing.
std::string Shortened(std::string_view text, size_t count);

}  // namespace sidecar

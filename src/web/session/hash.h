// The hash of the web console's tokens: the MD5 algorithm of RFC 1321 over exactly one 64-byte
// block, laid out by a rule of our own that the pages' script follows too.
#pragma once

#include <string>

namespace varek {

/// 32 lower-case hexadecimal digits. Equals standard MD5 up to 55 characters of plain text.
/// Characters are the UTF-16 code units of `text`. Throws RuntimeError 9 from 64 characters on.
std::string Hash(const std::string& text);

}  // namespace varek

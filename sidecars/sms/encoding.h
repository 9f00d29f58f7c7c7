// The forms in which a text travels to an SMS service. Texts come in as UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace sidecar {

/// True when all characters of `text` are in Latin-1.
bool IsLatin1(std::string_view text);

/// `text` in one byte a character. REQUIRES IsLatin1.
std::string Latin1(std::string_view text);

/// `text` as the hexadecimal digits of its UTF-16 units, big-endian.
std::string Utf16Hex(std::string_view text);

/// Everything but the unreserved characters (RFC 3986, section 2.3) as %XX.
std::string PercentEncoded(std::string_view bytes);

}  // namespace sidecar

// Texts inside mail headers: names and subjects in any language, in characters that every server
// on the way leaves alone.
#pragma once

#include <string>

namespace sidecar {

/// An unstructured text (RFC 5322, section 3.2.5). Plain ASCII stays plain, anything else becomes
/// folded encoded words (RFC 2047) of at most 75 characters. Line ends and control characters
/// become blanks.
std::string HeaderText(const std::string& text);

/// "name <address>", the name quoted or encoded where needed; the bare address without a name.
/// REQUIRES a checked address.
std::string Mailbox(const std::string& name, const std::string& address);

}  // namespace sidecar

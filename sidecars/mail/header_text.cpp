#include "mail/header_text.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "kit/utf8.h"
#include "mail/base64.h"
#include "platform/text/text.h"

namespace sidecar {

namespace {

/// With "Subject: " in front and the marks around it, a word of so many bytes still fits into the
/// 76 characters that a line with encoded words may have.
constexpr size_t kBytesPerWord = 39;
/// Even with each character escaped it stays below the 998 that a line may have.
constexpr size_t kLongestPlain = 300;
constexpr char kFold[] = "\r\n ";
constexpr std::string_view kQuotedOnly = "()<>[]:;@\\,.\"";  // RFC 5322, section 3.2.3: specials

/// Plain text that looks like an encoded word would be decoded by the reader.
bool IsPlain(const std::string& text) {
  return text.size() <= kLongestPlain && text.find("=?") == std::string::npos &&
         std::ranges::all_of(text, [](char byte) { return static_cast<uint8_t>(byte) < 0x80; });
}

std::string EncodedWord(const std::string& bytes) { return "=?UTF-8?B?" + Base64(bytes) + "?="; }

/// No character is split between two words.
std::string EncodedWords(const std::string& text) {
  std::string words;
  std::string bytes;
  for (const char32_t point : CodePoints(text)) {
    const std::string character = Utf8({&point, 1});
    if (bytes.size() + character.size() > kBytesPerWord) {
      words += EncodedWord(bytes) + kFold;
      bytes.clear();
    }
    bytes += character;
  }
  return words + EncodedWord(bytes);
}

std::string Quoted(const std::string& name) {
  std::string quoted;
  for (const char byte : name) {
    if (byte == '"' || byte == '\\') quoted += '\\';
    quoted += byte;
  }
  return '"' + quoted + '"';
}

}  // namespace

std::string HeaderText(const std::string& text) {
  const std::string line = platform::Trim(OneLine(text));
  return IsPlain(line) ? line : EncodedWords(line);
}

std::string Mailbox(const std::string& name, const std::string& address) {
  const std::string line = platform::Trim(OneLine(name));
  if (line.empty()) return address;
  if (!IsPlain(line)) return EncodedWords(line) + kFold + "<" + address + ">";
  const bool atoms = line.find_first_of(kQuotedOnly) == std::string::npos;
  return (atoms ? line : Quoted(line)) + " <" + address + ">";
}

}  // namespace sidecar

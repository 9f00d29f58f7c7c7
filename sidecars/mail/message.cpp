#include "mail/message.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <random>
#include <string_view>

#include "kit/utf8.h"
#include "mail/base64.h"
#include "mail/header_text.h"

namespace sidecar {

namespace {

constexpr size_t kLongestLine = 998;  // RFC 5322, section 2.1.1
constexpr size_t kBytesPerLine = 57;  // 76 characters of base64, RFC 2045, section 6.8

/// With the offset from UTC. Only ASCII names, as long as nobody has set a locale.
std::string DateText() {
  const std::time_t now = std::time(nullptr);
  std::array<char, 64> text{};
  std::strftime(text.data(), text.size(), "%a, %d %b %Y %H:%M:%S %z", std::localtime(&now));
  return text.data();
}

std::string RandomHex() {
  std::random_device random;
  std::string text;
  for (int i = 0; i < 4; ++i) {
    std::array<char, 9> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x", random());
    text += digits.data();
  }
  return text;
}

std::string MessageId(const std::string& sender) {
  return "<" + RandomHex() + sender.substr(sender.rfind('@')) + ">";
}

/// Valid UTF-8 in lines that end in CRLF, the last one too, whatever ended them before.
std::string BodyLines(const std::string& body) {
  std::string lines;
  char32_t previous = 0;
  for (const char32_t point : CodePoints(body)) {
    const bool secondHalf = point == U'\n' && previous == U'\r';
    if (point == U'\r' || (point == U'\n' && !secondHalf)) {
      lines += "\r\n";
    } else if (!secondHalf) {
      lines += Utf8({&point, 1});
    }
    previous = point;
  }
  if (!lines.ends_with("\r\n")) lines += "\r\n";
  return lines;
}

size_t LongestLine(std::string_view lines) {
  size_t longest = 0;
  for (size_t from = 0, end; (end = lines.find("\r\n", from)) != lines.npos; from = end + 2) {
    longest = std::max(longest, end - from);
  }
  return longest;
}

bool TravelsAsItIs(const std::string& lines) {
  return LongestLine(lines) <= kLongestLine &&
         std::ranges::all_of(lines, [](char byte) { return static_cast<uint8_t>(byte) < 0x80; });
}

std::string Base64Lines(std::string_view bytes) {
  std::string lines;
  for (size_t from = 0; from < bytes.size(); from += kBytesPerLine) {
    lines += Base64(bytes.substr(from, kBytesPerLine)) + "\r\n";
  }
  return lines;
}

std::string Headers(const Mail& mail) {
  return "Date: " + DateText() +                                                   //
         "\r\nFrom: " + Mailbox(mail.senderName, mail.senderAddress) +             //
         "\r\nTo: " + Mailbox(mail.recipientName, mail.recipientAddress) +         //
         "\r\nSubject: " + HeaderText(mail.subject) +                              //
         "\r\nMessage-ID: " + MessageId(mail.senderAddress) +                      //
         "\r\nMIME-Version: 1.0\r\nContent-Type: text/plain; charset=utf-8\r\n" +  //
         "Auto-Submitted: auto-generated\r\n";
}

}  // namespace

std::string Compose(const Mail& mail) {
  const std::string lines = BodyLines(mail.body);
  const bool plain = TravelsAsItIs(lines);
  return Headers(mail) + "Content-Transfer-Encoding: " + (plain ? "7bit" : "base64") + "\r\n\r\n" +
         (plain ? lines : Base64Lines(lines));
}

}  // namespace sidecar

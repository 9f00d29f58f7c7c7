#include "mail/addresses.h"

#include <algorithm>
#include <regex>

#include "kit/trouble.h"
#include "platform/text/text.h"

namespace sidecar {

namespace {

constexpr size_t kLongestAddress = 254;  // RFC 5321, section 4.5.3.1.3, less the angle brackets
constexpr int kLastPort = 65535;

[[noreturn]] void Fail(const std::string& words, Trouble trouble) {
  throw CannotSend({words, trouble, ""});
}

/// A name, an IPv4 address, or an IPv6 address in brackets, perhaps with a zone; perhaps a port.
const std::regex& ServerForm() {
  static const std::regex form(
      R"(([A-Za-z0-9._-]+|\[[0-9A-Fa-f.]*:[0-9A-Fa-f:.]*(?:%[A-Za-z0-9]+)?\])(?::([0-9]{1,5}))?)");
  return form;
}

/// A dot-atom at a domain (RFC 5322, section 3.4.1).
const std::regex& AddressForm() {
  static const std::regex form(R"([A-Za-z0-9.!#$%&'*+/=?^_`{|}~-]+@[A-Za-z0-9._-]+)");
  return form;
}

/// The forms are matched against short texts only: matching takes stack for each character.
bool Matches(const std::string& text, std::smatch& parts, const std::regex& form) {
  return text.size() <= kLongestAddress && std::regex_match(text, parts, form);
}

}  // namespace

MailServer ParseServer(const std::string& text) {
  std::string server = platform::Trim(text);
  if (server.empty()) Fail("no mail server is set", Trouble::NoServer);
  if (std::ranges::count(server, ':') > 1 && !server.starts_with('[')) server = "[" + server + "]";
  std::smatch parts;
  if (!Matches(server, parts, ServerForm()))
    Fail("the mail server's address is wrong", Trouble::WrongServer);
  const int port = parts[2].matched ? std::stoi(parts[2]) : 0;
  if (port > kLastPort || (parts[2].matched && port == 0))
    Fail("the mail server's port is wrong", Trouble::WrongServer);
  return {parts[1], port};
}

std::string CheckedAddress(const std::string& address, Person whose) {
  const bool sender = whose == Person::Sender;
  const std::string what = sender ? "sender's address" : "recipient's address";
  std::string checked = platform::Trim(address);
  if (checked.empty())
    Fail("no " + what + " is set", sender ? Trouble::NoSender : Trouble::NoRecipient);
  std::smatch parts;
  if (!Matches(checked, parts, AddressForm()))
    Fail("the " + what + " is no plain name@domain",
         sender ? Trouble::WrongSender : Trouble::WrongRecipient);
  return checked;
}

}  // namespace sidecar

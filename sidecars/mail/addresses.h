// The addresses that a person has typed: of the mail server and of the two ends of a mail.
#pragma once

#include <string>

namespace sidecar {

struct MailServer {
  std::string host;  ///< a name or an IPv4 address, or an IPv6 address in brackets
  int port = 0;      ///< 1 to 65535; 0 when none was given
};

/// Reads "host", "host:port", "[v6]", "[v6]:port" or a bare IPv6 address. Throws CannotSend when
/// `text` is none of these.
MailServer ParseServer(const std::string& text);

/// The two ends of a mail.
enum class Person { Sender, Recipient };

/// The address of `whose`, without the blanks around it. Throws CannotSend when it is empty or is
/// no plain name@domain: blanks, brackets, commas, quotes and control characters may reach neither
/// a header nor a mail command.
std::string CheckedAddress(const std::string& address, Person whose);

}  // namespace sidecar

// A mail as it goes over the wire: headers and a text body (RFC 5322, RFC 2045).
#pragma once

#include <string>

namespace sidecar {

struct Mail {
  std::string senderName;
  std::string senderAddress;  ///< checked
  std::string recipientName;
  std::string recipientAddress;  ///< checked
  std::string subject;
  std::string body;
};

/// The whole message with CRLF line ends. It carries its time and an identity of its own, so it is
/// made once for all attempts: a reader drops a copy of what has arrived before.
std::string Compose(const Mail& mail);

}  // namespace sidecar

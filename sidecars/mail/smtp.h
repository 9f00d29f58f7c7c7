// Handing a mail to its server (RFC 5321), through libcurl.
#pragma once

#include <string>

#include "kit/delivery.h"
#include "mail/addresses.h"
#include "mail/mail_settings.h"

namespace sidecar {

struct Envelope {
  MailServer server;
  std::string sender;     ///< checked address
  std::string recipient;  ///< checked address
};

/// One attempt to send `message` (CRLF line ends). What the server refuses for good (a reply of the
/// 500s, a login, a certificate) is refused; so is a mail that it has got whole and says nothing
/// about in time, since it may be slow to examine what it delivers. The rest may go better later.
/// The words hold the server's last reply. Throws RuntimeError when the settings can't be used.
Attempt SendMail(const Envelope& envelope, const MailSettings& settings,
                 const std::string& message);

}  // namespace sidecar

// What mailto.conf says: how to reach the mail server, and as whom.
#pragma once

#include <string>

#include "kit/delivery.h"
#include "kit/log_file.h"

namespace sidecar {

enum class Security { Auto, StartTls, Tls, None };

struct MailSettings {
  std::string user;  ///< empty for a server without login
  std::string password;
  std::string ca;  ///< file of the certificates to trust; empty for the system's
  Security security = Security::Auto;
  DeliverySettings delivery;

  bool HasLogin() const { return !user.empty(); }
};

/// Reads the file `conf`; the defaults where there is none. Throws RuntimeError when it is broken.
/// A file with a password that others may read is closed to them, with a line in `log`.
MailSettings ReadMailSettings(const std::string& conf, const LogFile& log);

}  // namespace sidecar

// What is sent to an SMS service for one message.
#pragma once

#include <string>

#include "sms/gateway.h"

namespace sidecar {

struct SmsMessage {
  std::string account;
  std::string password;
  std::string number;
  std::string text;
  std::string apiId;
};

/// The gateway's parameters for `message`, encoded and joined as in an address or a form.
std::string RequestParameters(const Gateway& gateway, const SmsMessage& message);

}  // namespace sidecar

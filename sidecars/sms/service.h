// Asking an SMS service to send a message, over HTTP through libcurl, and reading its reply.
#pragma once

#include "kit/delivery.h"
#include "sms/gateway.h"
#include "sms/request.h"

namespace sidecar {

/// One attempt. A service that can't be reached, is overloaded or in trouble may do better later;
/// any other reply that the gateway's description does not take for a good one is a refusal, since
/// a service may have sent, and charged for, what it answers strangely. Redirections are not
/// followed, certificates are always checked. The words never hold the password.
Attempt SendSms(const Gateway& gateway, const SmsMessage& message);

}  // namespace sidecar

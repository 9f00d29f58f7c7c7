// Asking an SMS service to send a message, over HTTP through libcurl, and reading its reply.
#pragma once

#include "kit/delivery.h"
#include "sms/gateway.h"
#include "sms/request.h"

namespace sidecar {

/// One attempt. A service that can't be reached, or says that it has too much to do (429, 503), may
/// do better later. What it has got whole is not asked for again otherwise: it may have sent, and
/// charged for, what it answers strangely, late or not at all. Redirections are not followed,
/// certificates are always checked. The words never hold the password.
Attempt SendSms(const Gateway& gateway, const SmsMessage& message);

}  // namespace sidecar

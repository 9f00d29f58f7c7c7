#include "sms/request.h"

#include "kit/utf8.h"
#include "sms/encoding.h"

namespace sidecar {

namespace {

std::string Encoded(const Gateway& gateway, const std::string& value) {
  const bool latin1 = gateway.latin1 && IsLatin1(value);
  return PercentEncoded(latin1 ? Latin1(value) : Utf8(CodePoints(value)));
}

}  // namespace

std::string RequestParameters(const Gateway& gateway, const SmsMessage& message) {
  const Placeholders values{{"account", message.account}, {"password", message.password},
                            {"number", message.number},   {"text", message.text},
                            {"api_id", message.apiId},    {"text_utf16", Utf16Hex(message.text)}};
  const Texts others = IsLatin1(message.text) ? Texts::Wide : Texts::Latin;
  std::string joined;
  for (const Parameter& parameter : gateway.parameters) {
    if (parameter.texts == others) continue;
    if (!joined.empty()) joined += '&';
    joined +=
        PercentEncoded(parameter.name) + "=" + Encoded(gateway, Filled(parameter.pattern, values));
  }
  return joined;
}

}  // namespace sidecar

// SMSTO: sends one text message and ends. Its one argument holds eight fields in brackets: number
// of the gateway, account, password, number of the recipient, text, api_id, mode, language.
// SMSTO.conf beside it describes the gateways; SMSTO.log tells what became of each message.

#include "kit/sender.h"
#include "platform/text/text.h"
#include "sms/gateway.h"
#include "sms/service.h"
#include "texts/text_numbers.h"

namespace {

using namespace sidecar;

enum Field { kGateway, kAccount, kPassword, kNumber, kText, kApiId, kMode, kLanguage, kFieldCount };

Delivery PrepareSms(const std::vector<std::string>& fields, const std::string& conf,
                    const LogFile&) {
  const Gateway gateway = ReadGateway(conf, platform::Trim(fields[kGateway]));
  // Blanks around them come from pasting, and a test brings them without: an event's message must
  // not fail where the test's did not.
  const auto trimmed = [&](Field field) { return platform::Trim(fields[field]); };
  const SmsMessage message{trimmed(kAccount), trimmed(kPassword), trimmed(kNumber), fields[kText],
                           trimmed(kApiId)};
  if (message.number.empty()) throw CannotSend({"no number is set", Trouble::NoNumber, ""});
  return {"to " + message.number + " by " + gateway.name, gateway.delivery,
          [=] { return SendSms(gateway, message); }};
}

}  // namespace

int main(int argc, char** argv) {
  return RunSender({"SMSTO", kFieldCount, varek::texts::kSmsTestTitle, PrepareSms}, argc, argv);
}

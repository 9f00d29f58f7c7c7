// mailto: sends one e-mail and ends. Its one argument holds nine fields in brackets: server, name
// and address of the sender, name and address of the recipient, subject, body, mode, language.
// mailto.conf beside it tells how to log in; mailto.log tells what became of each mail.

#include "kit/sender.h"
#include "mail/addresses.h"
#include "mail/mail_settings.h"
#include "mail/message.h"
#include "mail/smtp.h"
#include "texts/text_numbers.h"

namespace {

using namespace sidecar;

enum Field {
  kServer,
  kSenderName,
  kSenderAddress,
  kRecipientName,
  kRecipientAddress,
  kSubject,
  kBody,
  kMode,
  kLanguage,
  kFieldCount
};

Delivery PrepareMail(const std::vector<std::string>& fields, const std::string& conf,
                     const LogFile& log) {
  const MailSettings settings = ReadMailSettings(conf, log);
  const Envelope envelope{ParseServer(fields[kServer]),
                          CheckedAddress(fields[kSenderAddress], Person::Sender),
                          CheckedAddress(fields[kRecipientAddress], Person::Recipient)};
  const std::string message = Compose({fields[kSenderName], envelope.sender, fields[kRecipientName],
                                       envelope.recipient, fields[kSubject], fields[kBody]});
  return {"to " + envelope.recipient + " \"" + fields[kSubject] + "\"", settings.delivery,
          [=] { return SendMail(envelope, settings, message); }};
}

}  // namespace

int main(int argc, char** argv) {
  return RunSender({"mailto", kFieldCount, varek::texts::kMailTestTitle, PrepareMail}, argc, argv);
}

// The command lines of the three senders: a warning window, an e-mail, a text message. The program
// speaks no mail and no SMS itself; it starts a small program beside it and forgets it. Fields
// stand in square brackets with nothing between; there is no escaping. Every procedure here throws
// RuntimeError 53 when its program is missing.
#pragma once

#include <cstdint>
#include <string>

namespace varek {

/// How a sender was called: for an event (silently) or as a test (shows its result).
enum class SendMode : char { Event = 'F', Test = 'T' };

/// The five settings of a mail.
struct MailAccount {
  std::string server;
  std::string senderName;
  std::string senderAddress;
  std::string recipientName;
  std::string recipientAddress;
};

/// Shows the warning window with `text`.
void StartAlert(const std::string& text);

/// Sends one mail. The body goes out as it stands. Gives the sender's process.
int StartMail(const MailAccount& account, const std::string& subject, const std::string& body,
              SendMode mode);

/// Sends the mail of an event: with the web console on, its address stands below the body.
void mailto(const std::string& server, const std::string& senderName,
            const std::string& senderAddress, const std::string& recipientName,
            const std::string& recipientAddress, const std::string& subject,
            const std::string& body);

/// Sends one text message through a gateway (0 or 1). `mode` is "F" for an event, "T" for a test.
/// Gives the sender's process.
int SendMsg(int16_t gateway, const std::string& account, const std::string& password,
            const std::string& number, const std::string& text, const std::string& apiId,
            const std::string& mode);

}  // namespace varek

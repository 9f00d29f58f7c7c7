#include "records/notices/notification.h"

#include <vector>

#include "core/data_center.h"
#include "platform/system/paths.h"
#include "platform/system/process.h"
#include "platform/system/system.h"

namespace varek {

namespace {

using platform::WindowStyle;

/// "[a][b][c]"; a bracket in a field breaks the line, and nothing guards against it.
std::string BracketFields(const std::vector<std::string>& fields) {
  std::string line;
  for (const std::string& field : fields) line += "[" + field + "]";
  return line;
}

WindowStyle StyleFor(SendMode mode) {
  return mode == SendMode::Test ? WindowStyle::NormalFocus : WindowStyle::MinimizedFocus;
}

std::string ModeText(SendMode mode) { return std::string(1, static_cast<char>(mode)); }

std::string ConsoleAddress() {
  return "http://" + platform::LocalAddress() + ":" + std::to_string(DataCenter.settings.WebPort) +
         "/index.htm";
}

}  // namespace

void StartAlert(const std::string& text) {
  platform::StartProgram(platform::ProgramFolder() + "\\alert.exe", "UPS" + text,
                         WindowStyle::NormalFocus);
}

int StartMail(const MailAccount& account, const std::string& subject, const std::string& body,
              SendMode mode) {
  return platform::StartProgram(
      platform::ProgramFolder() + "\\mailto.exe",
      BracketFields({account.server, account.senderName, account.senderAddress,
                     account.recipientName, account.recipientAddress, subject, body, ModeText(mode),
                     GetLanguageIndex()}),
      StyleFor(mode));
}

void mailto(const std::string& server, const std::string& senderName,
            const std::string& senderAddress, const std::string& recipientName,
            const std::string& recipientAddress, const std::string& subject,
            const std::string& body) {
  const std::string link = DataCenter.settings.WebEnabled ? "\r\n\r\n " + ConsoleAddress() : "";
  StartMail({server, senderName, senderAddress, recipientName, recipientAddress}, subject,
            body + link, SendMode::Event);
}

int SendMsg(int16_t gateway, const std::string& account, const std::string& password,
            const std::string& number, const std::string& text, const std::string& apiId,
            const std::string& mode) {
  const SendMode style = mode == ModeText(SendMode::Test) ? SendMode::Test : SendMode::Event;
  return platform::StartProgram(platform::ProgramFolder() + "\\SMSTO.exe",
                                BracketFields({std::to_string(gateway), account, password, number,
                                               text, apiId, mode, GetLanguageIndex()}),
                                StyleFor(style));
}

}  // namespace varek

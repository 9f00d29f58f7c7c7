#include "core/configuration.h"

#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "core/data_center.h"
#include "core/link_record.h"
#include "platform/desktop/message_box.h"
#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"
#include "platform/system/system.h"
#include "platform/text/text.h"

namespace varek {

namespace {

constexpr char kFile[] = "\\config.qmz";

/// One line of the file: how its text becomes a setting, and the setting its text.
struct Line {
  std::function<void(const std::string& text)> read;
  std::function<std::string()> write;
};

int16_t Number(const std::string& text) {
  return platform::RoundToInt16(platform::LenientNumber(text));
}

/// A letter line: `set` when it is exactly the letter, anything else is clear.
Line LetterLine(Flag& field, char set, char clear) {
  return {[&field, set](const std::string& text) { field = ToFlag(text == std::string(1, set)); },
          [&field, set, clear] { return std::string(1, field ? set : clear); }};
}

Line SwitchLine(Flag& field) { return LetterLine(field, 'T', 'F'); }

/// Several switches in one line, a letter each; letters that are missing read as clear.
Line SwitchesLine(const std::vector<Flag*>& fields) {
  return {[fields](const std::string& text) {
            for (size_t i = 0; i < fields.size(); ++i) {
              *fields[i] = ToFlag(i < text.size() && text[i] == 'T');
            }
          },
          [fields] {
            std::string letters;
            for (const Flag* field : fields) letters += *field ? 'T' : 'F';
            return letters;
          }};
}

Line SwitchesLine(std::array<Flag, kEventCount>& fields) {
  std::vector<Flag*> pointers;
  pointers.reserve(fields.size());
  for (Flag& field : fields) pointers.push_back(&field);
  return SwitchesLine(pointers);
}

Line NumberLine(int16_t& field) {
  return {[&field](const std::string& text) { field = Number(text); },
          [&field] { return std::to_string(field); }};
}

/// A number with a blank on either side, which belongs to the file's format: do not trim it.
Line PaddedNumberLine(int16_t& field) {
  return {[&field](const std::string& text) { field = Number(text); },
          [&field] { return (field < 0 ? "" : " ") + std::to_string(field) + " "; }};
}

Line TextLine(std::string& field) {
  return {[&field](const std::string& text) { field = text; }, [&field] { return field; }};
}

void AddTextLines(std::vector<Line>& lines, std::array<std::string, kEventCount>& fields) {
  for (std::string& field : fields) lines.push_back(TextLine(field));
}

void ChoosePort(const std::string& text) {
  const int16_t port = Number(text);
  if (port == kUsbPort) return SelectUsb();
  if (port != 0) SelectSerial(port);
}

/// The lines of the file in their order. Do not reorder: the number of a line is its meaning.
std::vector<Line> FileLines() {
  Settings& data = DataCenter.settings;
  std::vector<Line> lines{
      SwitchLine(data.AutoSearchPort),
      {ChoosePort, [] { return std::to_string(Link.PortNumber); }},
      NumberLine(data.SystemShutdownBuffer),
      NumberLine(data.UPSShutdownBuffer),
      LetterLine(data.UseCelsius, 'C', 'F'),
      NumberLine(data.WebPort),
      SwitchLine(data.WebEnabled),
      TextLine(data.WebLoginPassword),
      TextLine(data.WebControlPassword),
      SwitchLine(data.AutoSaveOnShutdown),
      {[](const std::string& text) { SetLanguageIndex(Number(text)); }, GetLanguageIndex},
      SwitchesLine(data.MailEventEnable),
      TextLine(data.MailServer),
      TextLine(data.MailSenderName),
      TextLine(data.MailSenderAddress),
      TextLine(data.MailRecipientName),
      TextLine(data.MailRecipientAddress),
      TextLine(data.MailSubject),
  };
  AddTextLines(lines, data.MailEventText);
  lines.push_back(SwitchesLine(data.SmsEventEnable));
  lines.push_back(PaddedNumberLine(data.SmsGateway));
  lines.push_back(TextLine(data.SmsAccount));
  lines.push_back(TextLine(data.SmsPassword));
  lines.push_back(TextLine(data.SmsNumber));
  lines.push_back(TextLine(data.SmsApiId));
  AddTextLines(lines, data.SmsEventText);
  lines.push_back(NumberLine(data.PowerFailSystemDelay));
  lines.push_back(NumberLine(data.PowerFailUPSDelay));
  lines.push_back(NumberLine(data.BatLowSystemDelay));
  lines.push_back(NumberLine(data.BatLowUPSDelay));
  lines.push_back(SwitchesLine(
      std::vector<Flag*>{&data.PowerFailSystemEnable, &data.PowerFailUPSEnable,
                         &data.BatLowSystemEnable, &data.BatLowUPSEnable, &data.EventPopup}));
  return lines;
}

std::string TakeLine(std::istringstream& file, size_t number) {
  std::string text;
  if (!std::getline(file, text)) {
    throw platform::RuntimeError(platform::errors::kInputPastEnd,
                                 "config.qmz ends before line " + std::to_string(number));
  }
  if (text.ends_with('\r')) text.pop_back();
  return text;
}

bool& TooLong() {
  static bool tooLong = false;
  return tooLong;
}

void ReadLines(const std::string& bytes) {
  std::istringstream file(bytes);
  size_t number = 0;
  for (const Line& line : FileLines()) line.read(TakeLine(file, ++number));
  TooLong() = file.peek() != std::istringstream::traits_type::eof();
}

void TakeDefaults() {
  platform::MessageBox("LOAD CONFIG ERROR", "error!", platform::MessageIcon::Exclamation);
  DataCenter.settings.AutoSearchPort = kSet;
  DataCenter.settings.SystemShutdownBuffer = 5;
  DataCenter.settings.UPSShutdownBuffer = 1;
  DataCenter.settings.UseCelsius = kSet;
  DataCenter.settings.WebPort = 1888;
  DataCenter.settings.WebEnabled = kSet;
}

void FollowSystemLanguage() {
  switch (platform::SystemLocaleId()) {
    case 1028:
      return SetLanguageIndex(1);
    case 2052:
      return SetLanguageIndex(2);
    default:
      return SetLanguageIndex(0);
  }
}

}  // namespace

void ReadConfig() {
  const std::string path = platform::ProgramPath(kFile);
  platform::RemoveNeighbour(path);
  TooLong() = false;
  if (platform::IsFile(path)) {
    ReadLines(platform::ReadWholeFile(path));
  } else {
    TakeDefaults();
  }
  if (DataCenter.settings.AutoSearchPort) FollowSystemLanguage();
}

bool ConfigWasTooLong() { return TooLong(); }

/// Whatever a setting holds, it takes one line: one more would move all settings behind it.
void WriteConfig() {
  std::string bytes;
  for (const Line& line : FileLines()) bytes += platform::OneLine(line.write()) + "\n";
  platform::ReplaceFile(platform::ProgramPath(kFile), bytes);
}

}  // namespace varek

#include "sms/gateway.h"

#include <algorithm>

#include "kit/settings_file.h"
#include "kit/trouble.h"
#include "platform/errors/runtime_error.h"

namespace sidecar {

namespace {

[[noreturn]] void Fail(const std::string& words) {
  throw platform::RuntimeError(platform::errors::kInvalidCall, words);
}

/// True for the first of two names, false for the second.
bool IsFirst(const std::string& value, const std::string& first, const std::string& second) {
  if (value != first && value != second) Fail(first + " or " + second + " is needed");
  return value == first;
}

std::string Address(const std::string& value) {
  const bool known = value.starts_with("http://") || value.starts_with("https://");
  if (!known) Fail("an http or https address is needed");
  return value;
}

std::regex Pattern(const std::string& value) try {
  return std::regex(value);
} catch (const std::regex_error& error) {
  Fail(std::string("no regular expression: ") + error.what());
}

Parameter ReadParameter(Texts texts, const std::string& value) {
  static const Placeholders kAll{{"account", ""}, {"password", ""},   {"number", ""},
                                 {"text", ""},    {"text_utf16", ""}, {"api_id", ""}};
  const size_t blank = std::min(value.find(' '), value.size());
  if (blank == 0) Fail("the parameter's name is needed");
  const std::string pattern =
      value.substr(std::min(value.find_first_not_of(' ', blank), value.size()));
  Filled(pattern, kAll);  // A placeholder that does not exist shows here and not in a message.
  return {texts, value.substr(0, blank), pattern};
}

SettingReaders GatewayReaders(Gateway& gateway) {
  const auto parameter = [&](Texts texts) {
    return [&gateway, texts](const std::string& value) {
      gateway.parameters.push_back(ReadParameter(texts, value));
    };
  };
  using Value = const std::string&;
  return {{"name", [&](Value value) { gateway.name = value; }},
          {"method", [&](Value value) { gateway.post = IsFirst(value, "POST", "GET"); }},
          {"address", [&](Value value) { gateway.address = Address(value); }},
          {"encoding", [&](Value value) { gateway.latin1 = IsFirst(value, "latin-1", "utf-8"); }},
          {"parameter", parameter(Texts::All)},
          {"parameter if latin", parameter(Texts::Latin)},
          {"parameter if wide", parameter(Texts::Wide)},
          {"good", [&](Value value) { gateway.good = Pattern(value); }},
          {"error", [&](Value value) { gateway.error = Pattern(value); }}};
}

}  // namespace

std::string Filled(const std::string& pattern, const Placeholders& values) {
  std::string filled;
  size_t from = 0;
  for (size_t open; (open = pattern.find('{', from)) != std::string::npos;) {
    const size_t close = pattern.find('}', open);
    if (close == std::string::npos) Fail("a placeholder does not end");
    const auto value = values.find(pattern.substr(open + 1, close - open - 1));
    if (value == values.end()) Fail("there is no such placeholder");
    filled += pattern.substr(from, open - from) + value->second;
    from = close + 1;
  }
  return filled + pattern.substr(from);
}

Gateway ReadGateway(const std::string& conf, const std::string& number) {
  const SettingsFile file(conf);
  const std::string place = "SMSTO.conf [" + number + "]";
  if (!file.HasSection(number))
    throw CannotSend({"SMSTO.conf has no gateway of this number", Trouble::SettingsFile, place});
  Gateway gateway;
  file.Read("", DeliveryReaders(gateway.delivery));
  file.Read(number, GatewayReaders(gateway));
  const auto require = [&](bool present, const std::string& key) {
    if (present) return;
    throw CannotSend({"SMSTO.conf, section " + number + ": " + key + " is missing",
                      Trouble::SettingsFile, place + " " + key});
  };
  require(!gateway.address.empty(), "address");
  require(gateway.good.has_value(), "good");
  if (gateway.name.empty()) gateway.name = "gateway " + number;
  return gateway;
}

}  // namespace sidecar

#include "simulator/json_line.h"

#include <cstdio>

namespace simulator {

namespace {

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const unsigned char byte : text) {
    if (byte == '"' || byte == '\\') {
      (quoted += '\\') += static_cast<char>(byte);
    } else if (byte >= 0x20 && byte < 0x7f) {
      quoted += static_cast<char>(byte);
    } else {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", byte);
      quoted += escape;
    }
  }
  return quoted + '"';
}

}  // namespace

JsonLine& JsonLine::AddText(std::string_view name, std::string_view text) {
  return Add(name, Quoted(text));
}

JsonLine& JsonLine::AddFlag(std::string_view name, bool value) {
  return Add(name, value ? "true" : "false");
}

JsonLine& JsonLine::AddNumber(std::string_view name, double value, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  std::string_view number = text;
  if (decimals > 0) {
    number = number.substr(0, number.find_last_not_of('0') + 1);
    if (number.ends_with('.')) number.remove_suffix(1);
  }
  return Add(name, number);
}

JsonLine& JsonLine::AddNull(std::string_view name) { return Add(name, "null"); }

JsonLine& JsonLine::Add(std::string_view name, std::string_view value) {
  if (!members_.empty()) members_ += ',';
  members_ += Quoted(name);
  members_ += ':';
  members_ += value;
  return *this;
}

}  // namespace simulator

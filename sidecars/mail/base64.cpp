#include "mail/base64.h"

#include <algorithm>
#include <cstdint>

namespace sidecar {

namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string Base64(std::string_view bytes) {
  std::string text;
  for (; !bytes.empty(); bytes.remove_prefix(std::min<size_t>(3, bytes.size()))) {
    uint32_t group = 0;
    for (size_t i = 0; i < 3; ++i) {
      group = group << 8 | (i < bytes.size() ? static_cast<uint8_t>(bytes[i]) : 0);
    }
    for (size_t i = 0; i < 4; ++i) {
      text += i <= bytes.size() ? kAlphabet[group >> (18 - 6 * i) & 0x3F] : '=';
    }
  }
  return text;
}

}  // namespace sidecar

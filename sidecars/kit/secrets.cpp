#include "kit/secrets.h"

namespace sidecar {

namespace {

constexpr char kMask[] = "***";
constexpr size_t kMaskSize = sizeof kMask - 1;

}  // namespace

std::string Masked(std::string text, const std::vector<std::string>& secrets) {
  for (const std::string& secret : secrets) {
    if (secret.empty()) continue;
    for (size_t at = 0; (at = text.find(secret, at)) != std::string::npos; at += kMaskSize) {
      text.replace(at, secret.size(), kMask);
    }
  }
  return text;
}

}  // namespace sidecar

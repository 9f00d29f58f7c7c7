#include "platform/system/system.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

#include <cstdlib>
#include <memory>

#include "platform/system/process.h"

namespace platform {

namespace {

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

bool IsOutside(const ifaddrs& address) {
  return address.ifa_addr && address.ifa_addr->sa_family == AF_INET &&
         (address.ifa_flags & IFF_UP) && !(address.ifa_flags & IFF_LOOPBACK);
}

std::string Dotted(const sockaddr& address) {
  char text[INET_ADDRSTRLEN] = "";
  const auto& ipv4 = reinterpret_cast<const sockaddr_in&>(address);
  inet_ntop(AF_INET, &ipv4.sin_addr, text, sizeof text);
  return text;
}

}  // namespace

void ShutDownSystem() {
  const std::string command = Environment("VAREK_SHUTDOWN_COMMAND");
  StartCommandLine(command.empty() ? "systemctl poweroff" : command);
}

int SystemLocaleId() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const std::string locale = Environment(name);
    if (locale.empty()) continue;
    if (locale.starts_with("zh_TW")) return 1028;
    if (locale.starts_with("zh_CN")) return 2052;
    break;
  }
  return 1033;
}

std::string LocalAddress() {
  ifaddrs* list = nullptr;
  if (getifaddrs(&list) != 0) return "127.0.0.1";
  const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> owner(list, &freeifaddrs);
  for (const ifaddrs* address = list; address; address = address->ifa_next) {
    if (IsOutside(*address)) return Dotted(*address->ifa_addr);
  }
  return "127.0.0.1";
}

}  // namespace platform

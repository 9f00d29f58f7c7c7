#include "mail/mail_settings.h"

#include <filesystem>
#include <map>

#include "kit/settings_file.h"
#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"

namespace sidecar {

namespace fs = std::filesystem;

namespace {

constexpr fs::perms kOthers = fs::perms::group_all | fs::perms::others_all;

Security SecurityNamed(const std::string& name) {
  static const std::map<std::string, Security> kNames{{"auto", Security::Auto},
                                                      {"starttls", Security::StartTls},
                                                      {"tls", Security::Tls},
                                                      {"none", Security::None}};
  const auto found = kNames.find(name);
  if (found != kNames.end()) return found->second;
  throw platform::RuntimeError(platform::errors::kInvalidCall,
                               "one of auto, starttls, tls and none is needed");
}

/// A relative name lies in the program folder.
std::string FilePath(const std::string& name) {
  return name.empty() ? "" : (fs::path(platform::ProgramFolder()) / name).string();
}

void CloseToOthers(const std::string& conf, const LogFile& log) {
  std::error_code error;
  if ((fs::status(conf, error).permissions() & kOthers) == fs::perms::none || error) return;
  fs::permissions(conf, kOthers, fs::perm_options::remove, error);
  log.Add(error ? "mailto.conf: others can read the password, and that can't be changed"
                : "mailto.conf: others could read the password; it is closed to them now");
}

}  // namespace

MailSettings ReadMailSettings(const std::string& conf, const LogFile& log) {
  MailSettings settings;
  SettingReaders readers = DeliveryReaders(settings.delivery);
  readers["user"] = [&](const std::string& value) { settings.user = value; };
  readers["password"] = [&](const std::string& value) { settings.password = value; };
  readers["ca"] = [&](const std::string& value) { settings.ca = FilePath(value); };
  readers["security"] = [&](const std::string& value) { settings.security = SecurityNamed(value); };
  SettingsFile(conf).Read("", readers);
  if (!settings.password.empty()) CloseToOthers(conf, log);
  return settings;
}

}  // namespace sidecar

#include "settings/save_settings.h"

#include "core/configuration.h"
#include "platform/guard.h"
#include "platform/message_box.h"

namespace varek {

bool SaveSettings(const std::string& handler, QWidget* window) {
  if (platform::Guarded(handler, WriteConfig)) return true;
  platform::TellLater(handler, window,
                      {"SAVE CONFIG ERROR", "error!", platform::MessageIcon::Exclamation});
  return false;
}

}  // namespace varek

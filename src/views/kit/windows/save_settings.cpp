#include "views/kit/windows/save_settings.h"

#include "core/configuration.h"
#include "platform/desktop/message_box.h"
#include "platform/errors/guard.h"

namespace varek {

bool SaveSettings(const std::string& handler, QWidget* window) {
  if (platform::Guarded(handler, WriteConfig)) return true;
  platform::TellLater(handler, window,
                      {"SAVE CONFIG ERROR", "error!", platform::MessageIcon::Exclamation});
  return false;
}

}  // namespace varek

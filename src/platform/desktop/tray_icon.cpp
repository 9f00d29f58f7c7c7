#include "platform/desktop/tray_icon.h"

#include <cstdint>

#include "platform/errors/guard.h"
#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"

namespace platform {

namespace {

constexpr size_t kTipBytes = 63;

bool ContinuesCharacter(char byte) { return (static_cast<uint8_t>(byte) & 0xC0) == 0x80; }

std::string CutTip(const std::string& tip) {
  if (tip.size() <= kTipBytes) return tip;
  size_t length = kTipBytes;
  while (length > 0 && ContinuesCharacter(tip[length])) --length;
  return tip.substr(0, length);
}

/// The tray of a program without a desktop.
class NoTray final : public TrayDriver {
 public:
  bool Add(const IconPicture&, const std::string&) override { return false; }
  void Modify(const IconPicture&, const std::string&) override {}
  void Delete() override {}
  void SetActions(const TrayActions&) override {}
};

TrayDriver* desktop = nullptr;
TrayDriver* replacement = nullptr;
bool (*holdsPicture)(const std::string& bytes) = nullptr;

TrayDriver& Tray() {
  static NoTray none;
  if (replacement) return *replacement;
  return desktop ? *desktop : none;
}

std::function<void()> InGuard(const char* place, const std::function<void()>& action) {
  return [place, action] {
    if (action) Guarded(place, action);
  };
}

}  // namespace

IconPicture LoadIcon(const std::string& path) {
  IconPicture picture{ReadWholeFile(path)};
  if (holdsPicture && !holdsPicture(picture.bytes)) {
    throw RuntimeError(errors::kInvalidPicture, "Invalid picture: " + path);
  }
  return picture;
}

bool TrayAdd(const IconPicture& picture, const std::string& tip) {
  return Tray().Add(picture, CutTip(tip));
}

void TrayModify(const IconPicture& picture, const std::string& tip) {
  Tray().Modify(picture, CutTip(tip));
}

void TrayDelete() { Tray().Delete(); }

void SetTrayActions(const TrayActions& actions) {
  TrayActions guarded{InGuard("tray double click", actions.doubleClick), {}};
  for (const TrayMenuItem& item : actions.menu) {
    guarded.menu.push_back({item.caption, InGuard("tray menu", item.action)});
  }
  Tray().SetActions(guarded);
}

void SetDesktopTray(TrayDriver* tray, bool (*isPicture)(const std::string& bytes)) {
  desktop = tray;
  holdsPicture = isPicture;
}

void ReplaceTrayDriver(TrayDriver* driver) { replacement = driver; }

}  // namespace platform

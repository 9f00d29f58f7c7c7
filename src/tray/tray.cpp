#include "tray/tray.h"

#include <utility>

#include "core/data_center.h"
#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"
#include "texts/language.h"

namespace varek {

TrayRecord Tray;

namespace {

constexpr int32_t kIconId = 1;
constexpr int16_t kNoLinkStage = 1;

std::function<void()> SHOWPROGRAM;
std::function<void()> ENDPROG;

platform::IconPicture LoadImage(const std::string& name) {
  return platform::LoadIcon(platform::ProgramPath("\\Image\\" + name + ".ico"));
}

std::string Tip(int16_t stage) {
  const auto index = static_cast<size_t>(stage);
  if (index >= StageText.size()) {
    throw platform::RuntimeError(platform::errors::kSubscript, "no such stage");
  }
  return Tray.TipText + "(" + StageText[index] + ")";
}

/// Until a language is loaded the menu shows the built-in captions.
std::string Caption(size_t text, const char* untilThen) {
  return LangText[text].empty() ? untilThen : LangText[text];
}

}  // namespace

void SetStageIcon(int16_t stage) {
  Tray.TrayPicture = LoadImage("Ico" + std::to_string(stage));
  if (Tray.TrayIconHandle != 0) platform::TrayModify(Tray.TrayPicture, Tip(stage));
}

void LoadTrayPicture() {
  Tray.TrayPicture = LoadImage("ico1");
  DataCenter.UPSStageLast = kNoLinkStage;
}

void TrayAdd() {
  if (platform::TrayAdd(Tray.TrayPicture, Tip(kNoLinkStage))) Tray.TrayIconHandle = kIconId;
}

void TrayDelete() {
  if (Tray.TrayIconHandle != 0) platform::TrayDelete();
  ForgetTrayIcon();
}

void ForgetTrayIcon() { Tray.TrayIconHandle = 0; }

void SetTrayActions(std::function<void()> showProgram, std::function<void()> endProgram) {
  SHOWPROGRAM = std::move(showProgram);
  ENDPROG = std::move(endProgram);
  ApplyTrayLanguage();
}

void ApplyTrayLanguage() {
  platform::SetTrayActions({
      .doubleClick = SHOWPROGRAM,
      .menu = {{Caption(texts::kShow, "顯示"), SHOWPROGRAM},
               {Caption(texts::kExit, "結束程式"), ENDPROG}},
  });
}

}  // namespace varek

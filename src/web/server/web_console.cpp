#include "web/server/web_console.h"

#include <memory>

#include "core/data_center.h"
#include "core/forms.h"
#include "web/server/http_server.h"

namespace varek {

namespace {

/// The form outlives every attempt to close it but that of the program's end.
class ConsoleEntry final : public FormEntry {
 public:
  ConsoleEntry() : FormEntry(Form8::kNumber) {}

  bool IsLoaded() const override { return form_ != nullptr; }
  Form8* Loaded() const { return form_.get(); }
  Form8& Get() {
    if (!form_) form_ = std::make_unique<Form8>();
    return *form_;
  }
  void Unload() override {
    if (DataCenter.ExitInProgress) form_.reset();
  }
  void ApplyLanguage() override {
    if (form_) form_->ApplyLanguage();
  }

 private:
  std::unique_ptr<Form8> form_;
};

ConsoleEntry& Console() {
  static ConsoleEntry entry;
  return entry;
}

}  // namespace

Form8* LoadedConsole() { return Console().Loaded(); }

void StartWebConsole() {
  SessionKey = NewKey();
  LoginKey = NewKey();
  Console().Get().Start();
}

bool WebConsoleListens() {
  const Form8* form = LoadedConsole();
  return form && form->Winsock1(0).State() == platform::SocketState::Listening;
}

void StopWebConsole() {
  if (Form8* form = LoadedConsole()) form->CloseAll();
}

}  // namespace varek

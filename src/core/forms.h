// Windows by their numbers. Each has at most one live instance, made on first use and destroyed
// by unload. A slot registers its window's number, so that the stop order and a change of
// language reach every window without knowing any.
#pragma once

#include <functional>
#include <memory>

namespace varek {

/// Ties a window number (1 to 17) to what can be done with the window from outside.
class FormEntry {
 public:
  explicit FormEntry(int number);
  virtual ~FormEntry();
  FormEntry(const FormEntry&) = delete;
  FormEntry& operator=(const FormEntry&) = delete;

  virtual bool IsLoaded() const = 0;
  virtual void Unload() = 0;
  virtual void ApplyLanguage() = 0;

 protected:
  /// Keeps FormOpen of the window, which other modules ask.
  void NoteOpen(bool open) const;

 private:
  int number_;
};

/// Unloads the window; a window that is not loaded, or not built in, is passed over.
void UnloadForm(int number);

/// Puts the texts of the present language on the window's controls, if it is loaded.
void ApplyFormLanguage(int number);

/// Holds the one instance of `Form`, which must be default-constructible and have ApplyLanguage().
template <typename Form>
class FormSlot final : public FormEntry {
 public:
  using FormEntry::FormEntry;

  bool IsLoaded() const override { return form_ != nullptr; }
  /// Loads the window if it is not loaded.
  Form& Get() {
    if (form_) return *form_;
    form_ = std::make_unique<Form>();
    NoteOpen(true);
    return *form_;
  }
  void Unload() override {
    if (!form_) return;
    NoteOpen(false);
    form_.reset();
  }
  void ApplyLanguage() override {
    if (form_) form_->ApplyLanguage();
  }

 private:
  std::unique_ptr<Form> form_;
};

}  // namespace varek

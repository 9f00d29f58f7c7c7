#include "core/forms.h"

#include <map>

#include "core/data_center.h"

namespace varek {

namespace {
std::map<int, FormEntry*>& Entries() {
  static std::map<int, FormEntry*> entries;
  return entries;
}

FormEntry* Find(int number) {
  const auto entry = Entries().find(number);
  return entry == Entries().end() ? nullptr : entry->second;
}
}  // namespace

FormEntry::FormEntry(int number) : number_(number) { Entries()[number] = this; }
FormEntry::~FormEntry() { Entries().erase(number_); }

void FormEntry::NoteOpen(bool open) const {
  const auto index = static_cast<size_t>(number_);
  if (index < DataCenter.FormOpen.size()) DataCenter.FormOpen[index] = ToFlag(open);
}

void UnloadForm(int number) {
  if (FormEntry* entry = Find(number)) entry->Unload();
}

void ApplyFormLanguage(int number) {
  if (FormEntry* entry = Find(number)) entry->ApplyLanguage();
}

}  // namespace varek

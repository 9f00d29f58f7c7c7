#include "core/forms.h"

#include <map>

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

void UnloadForm(int number) {
  if (FormEntry* entry = Find(number)) entry->Unload();
}

void ApplyFormLanguage(int number) {
  if (FormEntry* entry = Find(number)) entry->ApplyLanguage();
}

}  // namespace varek

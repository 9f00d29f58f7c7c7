// The web log: who has logged in to the web console, and when. It reads the event file and writes
// nothing; entries go with the purge of a new day.
#pragma once

#include "core/forms.h"
#include "views/kit/windows/view_window.h"

class QTableWidget;

namespace varek {

/// The web log's window.
class Form15 final : public ViewWindow {
 public:
  static constexpr int kNumber = 15;

  Form15();

  void ApplyLanguage();
  /// Reads the logins anew and shows the newest, which is the last. What can't be read is a line
  /// of the error list and an empty grid.
  void ShowLogins();

 private:
  QTableWidget* logins_;  ///< a row for each
};

/// The one instance.
FormSlot<Form15>& WebLog();

/// Shows the web log, or raises it, with the logins of now.
void ShowWebLog();

}  // namespace varek

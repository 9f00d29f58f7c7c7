// The web log: who has logged in to the web console, and when. It reads the event file and writes
// nothing; entries go with the purge of a new day.
#pragma once

#include <string>
#include <vector>

#include "core/forms.h"
#include "views/kit/windows/view_window.h"

class QTableWidget;

namespace varek {

struct WebLogin {
  std::string time;  ///< "yyyy/mm/dd hh:mm:ss"
  std::string address;
};

/// All logins in the order in which they came. Throws RuntimeError when the file or its table
/// can't be read.
std::vector<WebLogin> ReadWebLog();

/// Its grid is found by the object name "DBGrid1".
class Form15 final : public ViewWindow {
 public:
  static constexpr int kNumber = 15;

  Form15();
  ~Form15() override;

  void ApplyLanguage();
  /// Reads the logins anew and shows the newest, which is the last. What can't be read is a line
  /// of the error list and an empty grid.
  void ShowLogins();

 private:
  void FillGrid(const std::vector<WebLogin>& logins);

  QTableWidget* DBGrid1;
};

/// The one instance.
FormSlot<Form15>& WebLog();

/// Shows the web log, or raises it, with the logins of now.
void ShowWebLog();

}  // namespace varek

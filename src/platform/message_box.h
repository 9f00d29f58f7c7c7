// Message boxes. On a display they wait for the person; without one their text goes to standard
// error (which is the journal for a service) and they do not wait.
#pragma once

#include <functional>
#include <string>

namespace platform {

enum class MessageIcon { None, Exclamation };

/// Shows `text` under `title`; returns when the person has closed it. Other handlers run meanwhile.
void MessageBox(const std::string& text, const std::string& title = "Varek",
                MessageIcon icon = MessageIcon::None);

/// Writes one line for whoever looks after the machine: standard error, marked for the journal.
void LogLine(const std::string& text);

/// Takes the place of MessageBox for tests; nullptr restores.
void ReplaceMessageBox(std::function<void(const std::string& text, const std::string& title)> show);

}  // namespace platform

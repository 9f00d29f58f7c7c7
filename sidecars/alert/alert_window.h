// The warning window of UPS events: one line for each, the newest last and lit. It comes up on top
// of all others with every line.
#pragma once

#include <QTextEdit>
#include <cstdint>
#include <string>

#include "kit/notice_window.h"
#include "platform/toolkit/desktop_notifier.h"

namespace sidecar {

class AlertWindow final : public NoticeWindow {
 public:
  AlertWindow();

  /// Shows `text`, one plain line, with the present time; the desktop's notification and a line in
  /// the log go with it. Of more than 200 lines the oldest go.
  void AddLine(const std::string& text);

 protected:
  /// A key or a click that was meant for another program must not close a warning that nobody has
  /// seen yet.
  bool MayClose() const override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void MakeLines();
  void Append(const QString& time, const QString& text);
  void FitToLines();
  void ComeUp();

  QTextEdit* lines_;
  platform::DesktopNotifier notifier_;
  int64_t newestTick_ = 0;
};

/// Leaves `text` in the log: the system journal, or standard error where there is none.
void LogAlert(const std::string& time, const std::string& text);

}  // namespace sidecar

// The hint that a save at shutdown can be set up, and how. It does not take the focus.
#pragma once

#include "kit/notice_window.h"

class QCheckBox;

namespace sidecar {

class HintWindow final : public NoticeWindow {
 public:
  HintWindow();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void AddStep(int number, size_t text, const QString& detail);

  QCheckBox* silence_;
};

}  // namespace sidecar

// The panel in which an export shows how far it has come.
#pragma once

#include <QWidget>

#include "platform/picture/surface.h"

class QLabel;

namespace varek {

class ExportPanel final : public QWidget {
 public:
  explicit ExportPanel(QWidget* parent);

  /// Shows the panel, empty, in the middle of its parent.
  void Open();
  /// 0 to 100. Called for every record; only what can be seen to change is drawn.
  void SetProgress(double percent);
  void ApplyLanguage();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void SetPercentText(int percent);

  QLabel* caption_;
  QLabel* percentText_;
  platform::Surface target_;
  platform::Surface source_;
  int shownPixels_ = 0;
  int shownPercent_ = 0;
};

}  // namespace varek

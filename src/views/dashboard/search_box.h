// The box in which a search for the unit shows itself on the dashboard: what is being tried, and
// how far the search has come.
#pragma once

#include <QFrame>
#include <string>

#include "platform/picture/surface.h"

class QLabel;

namespace varek {

class SearchBox final : public QFrame {
 public:
  explicit SearchBox(QWidget* parent);

  /// Shows the box, empty, in the middle of its parent.
  void Open();
  /// Puts it there again, after the parent has changed its size.
  void Place();
  void ApplyLanguage();
  /// What is being tried.
  void SetLabel(const std::string& text);
  /// 0 to 100. Called thousands of times a second; only a pixel more is drawn.
  void SetProgress(double percent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QLabel* caption_;
  QLabel* label_;
  platform::Surface target_;
  platform::Surface source_;
  int barTop_;     ///< below the texts
  int shown_ = 0;  ///< pixels of the bar
};

}  // namespace varek

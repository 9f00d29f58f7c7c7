// Where a window's parts stand in its design, and where they stand in a window of another size.
#pragma once

#include <QRect>
#include <QSize>
#include <vector>

class QWidget;

namespace varek {

/// Left, top, width and height of `design`, each times the new client size by the design's, to the
/// nearest whole pixel. An empty design client leaves the rectangle as it is.
QRect ScaleRect(const QRect& design, QSize designClient, QSize client);

class DesignLayout final {
 public:
  /// Captures the present places of `parts` as their design, for a client area of `client`. The
  /// parts must live as long as Apply is called.
  void Resizeinit(QSize client, const std::vector<QWidget*>& parts);

  /// Puts every part where it stands in a client area of `client`. One that needs more height for
  /// its text gets it, and what stands below it begins lower.
  void Apply(QSize client) const;

 private:
  struct Part {
    QWidget* widget;
    QRect design;
  };
  int BottomAbove(const Part& part) const;

  QSize designClient_;
  std::vector<Part> parts_;
};

}  // namespace varek

// A month as a page of large day cells, six weeks of seven, Sunday first, below the heads of the
// week days. A cell shows its number and a row of small pictures. The view says what each day shows
// and what a click and the pointer do; arrows move the focus from day to day, and Enter or Space
// clicks. Cells outside the month are empty and react to nothing.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "platform/picture/surface.h"

namespace varek {

constexpr int kMonthGridCells = 42;

struct DayColors {
  platform::Color back;
  platform::Color ink;  ///< of the number
};

/// Empty cells are plain; a selected day is `selected` even when it is today.
struct MonthGridColors {
  DayColors plain;
  DayColors today;
  DayColors selected;
};

class MonthGrid final : public QWidget {
 public:
  /// Handlers run guarded, under `name` and the event's name; they must not destroy the grid.
  MonthGrid(QWidget* parent, std::string name, const MonthGridColors& colors);

  /// Numbers the days and takes away all pictures; the selected day stays selected where the month
  /// has it. REQUIRES a month from 1 to 12.
  void ShowMonth(int year, int month);
  /// The pictures of a day of the month, which must live as long as they are shown: one beside the
  /// other from the upper left, in further rows where the cell is too narrow.
  void SetPictures(int day, std::vector<const QPixmap*> pictures);
  /// A day that the month does not have, as 0, selects none.
  void SelectDay(int day);

  void OnClick(std::function<void(int day)> clicked);
  /// The pointer is over picture `picture` (from 0) of `day`, or over none, when both are -1.
  /// Reported once for each change.
  void OnHover(std::function<void(int day, int picture)> hovered);

  /// Where a cell (0 to 41) stands in the widget, in pixels.
  QRect CellRect(int cell) const;
  /// The cell of a day from 1 on.
  int CellOf(int day) const;
  /// The day in a cell, or 0 when it is empty.
  int DayIn(int cell) const;
  /// Where a day's pictures stand, in their order.
  std::vector<QRect> PictureRects(int day) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  struct Spot {
    int day = -1;
    int picture = -1;
    bool operator==(const Spot&) const = default;
  };

  /// The cell at a point of the widget, or -1 on the heads and outside.
  int CellAt(QPoint point) const;
  const std::vector<const QPixmap*>& PicturesOf(int day) const;
  Spot SpotAt(QPoint point) const;
  void Hover(Spot spot);
  void Click(int day);
  void MoveFocus(int days);
  bool HandleKey(int key);
  const DayColors& ColorsOf(int day) const;
  void PaintHeads(QPainter& painter) const;
  void PaintCell(QPainter& painter, int cell) const;
  void PaintDay(QPainter& painter, int day) const;

  std::string name_;
  MonthGridColors colors_;
  std::function<void(int)> clicked_;
  std::function<void(int, int)> hovered_;
  int year_ = 0;
  int month_ = 0;
  int today_ = 0;  ///< 0 in another month than the present one
  int selected_ = 0;
  int focused_ = 1;  ///< the day that the arrows have reached
  Spot hover_;
  std::array<std::vector<const QPixmap*>, 31> pictures_;  ///< by day less one
};

}  // namespace varek

// The calendar on which a day is picked: a month's page, with buttons for the months before and
// after. A click on a day chooses it; arrows move the selected day, Page Up and Page Down the
// month, and Enter or Space chooses.
#pragma once

#include <QPushButton>
#include <QWidget>
#include <functional>
#include <string>

#include "platform/time/clock.h"

namespace varek {

class MonthCalendar : public QWidget {
 public:
  /// Shows today. `chosen` runs guarded, under `name`, once Year, Month and Day are the chosen
  /// day's.
  MonthCalendar(QWidget* parent, std::string name, std::function<void()> chosen);

  int Year() const { return year_; }
  int Month() const { return month_; }  ///< 1 to 12
  int Day() const { return day_; }      ///< 1 to 31

  /// Sets the calendar to today.
  void datetableinit();
  /// Paints the page with `day` selected; a day that the month does not have becomes its last.
  void RepaintTable(int day);
  void Lastmonth();
  void Nextmonth();
  /// Names of months and week days, and the buttons' tool tips, in the present language.
  void ApplyLanguage();

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  /// Where cell 0 to 48 stands in the widget, in pixels.
  QRect CellRect(int cell) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Choose();
  void ChooseAt(QPoint at);
  /// `days` is from -7 to 7; goes on in the neighbouring month.
  void MoveDay(int days);
  bool HandleKey(int key);
  bool IsToday(int day) const;
  void PaintCell(QPainter& painter, int cell) const;
  void PaintHeader(QPainter& painter) const;

  std::string name_;
  std::function<void()> chosen_;
  int year_ = 0;
  int month_ = 1;
  int day_ = 1;
  platform::DateTime today_;
  QPushButton previous_;
  QPushButton next_;
};

}  // namespace varek

#include "views/kit/calendar/month_choosers.h"

#include <QComboBox>
#include <QPushButton>
#include <QSignalBlocker>

#include "texts/text_numbers.h"
#include "views/kit/looks/shown.h"

namespace varek {

namespace {

constexpr int kMonths = 12;

QString MonthName(int month) { return Shown(texts::kJanuary + static_cast<size_t>(month - 1)); }

}  // namespace

void FillMonthChoosers(QComboBox& years, QComboBox& months) {
  for (int year = kFirstChooserYear; year <= kLastChooserYear; ++year)
    years.addItem(QString::number(year));
  for (int month = 1; month <= kMonths; ++month) months.addItem(QString());
}

void SelectMonth(QComboBox& years, QComboBox& months, int year, int month) {
  const QSignalBlocker quietYears(years), quietMonths(months);
  years.setCurrentIndex(years.findText(QString::number(year)));
  months.setCurrentIndex(month - 1);
}

void ApplyChooserLanguage(QComboBox& years, QComboBox& months, QPushButton& today) {
  years.setPlaceholderText(Shown(texts::kChooseYear));
  years.setToolTip(Shown(texts::kChooseYear));
  months.setToolTip(Shown(texts::kChooseMonth));
  today.setText(Shown(texts::kToday));
  for (int month = 1; month <= kMonths; ++month) months.setItemText(month - 1, MonthName(month));
}

QString MonthTitle(int year, int month) {
  return QString::number(year) + QStringLiteral(" ") + MonthName(month);
}

}  // namespace varek

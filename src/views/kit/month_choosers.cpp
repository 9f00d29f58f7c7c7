#include "views/kit/month_choosers.h"

#include <QComboBox>
#include <QPushButton>
#include <QSignalBlocker>

#include "settings/language.h"

namespace varek {

namespace {

constexpr int kMonths = 12;
constexpr size_t kNoMonthName = 60;  ///< the text before January's
constexpr size_t kChooseYearText = 203;
constexpr size_t kChooseMonthText = 205;
constexpr size_t kTodayText = 220;

QString Text(size_t number) { return QString::fromStdString(LangText[number]); }

QString MonthName(int month) { return Text(kNoMonthName + static_cast<size_t>(month)); }

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
  years.setPlaceholderText(Text(kChooseYearText));
  years.setToolTip(Text(kChooseYearText));
  months.setToolTip(Text(kChooseMonthText));
  today.setText(Text(kTodayText));
  for (int month = 1; month <= kMonths; ++month) months.setItemText(month - 1, MonthName(month));
}

QString MonthTitle(int year, int month) {
  return QString::number(year) + QStringLiteral(" ") + MonthName(month);
}

}  // namespace varek

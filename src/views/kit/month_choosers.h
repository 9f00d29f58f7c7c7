// The two choosers of a month that the event log and the schedule calendar have: a list of years
// and a list of months.
#pragma once

#include <QString>

class QComboBox;

namespace varek {

/// Other years can't be chosen. In a later one no year is selected, and the present month shows
/// until a year is chosen.
constexpr int kFirstChooserYear = 2000;
constexpr int kLastChooserYear = 2011;

/// Adds the years, and twelve months that are still without names.
void FillMonthChoosers(QComboBox& years, QComboBox& months);

/// The names of the months and the tool tips in the present language.
void ApplyChooserLanguage(QComboBox& years, QComboBox& months);

/// The year, a blank and the month's name.
QString MonthTitle(int year, int month);

}  // namespace varek

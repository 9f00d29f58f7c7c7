// The two choosers of a month that the event log and the schedule calendar have: a list of years
// and a list of months. Beside them stands a button that leads back to today, the only way back to
// a year that can't be chosen.
#pragma once

#include <QString>

class QComboBox;
class QPushButton;

namespace varek {

/// Other years can't be chosen. In a later one no year is selected, and the present month shows
/// until a year is chosen.
constexpr int kFirstChooserYear = 2000;
constexpr int kLastChooserYear = 2011;

/// Adds the years, and twelve months that are still without names.
void FillMonthChoosers(QComboBox& years, QComboBox& months);

/// Selects a month without a signal. A year that can't be chosen leaves none selected.
void SelectMonth(QComboBox& years, QComboBox& months, int year, int month);

/// The names of the months, the tool tips and the button's text in the present language.
void ApplyChooserLanguage(QComboBox& years, QComboBox& months, QPushButton& today);

/// The year, a blank and the month's name.
QString MonthTitle(int year, int month);

}  // namespace varek

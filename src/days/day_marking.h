// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <optional>

#include "days/month_grid.h"

namespace tickwell::days {

/// What a click on a day does; the value is the index of the option button.
enum class CalendarMode { Normal, Holidays, Halfdays };

/// The colour that a marking mode sets and removes; `mode` is not Normal.
DayColor ColorOf(CalendarMode mode);

/// The colour after a click: black if the day has the mode's colour, otherwise the mode's colour. So a
/// Saturday that is toggled twice becomes an ordinary day.
DayColor ToggledColor(CalendarMode mode, DayColor color);

/// The mark to store for a cell of a calendar whose holidays are stored; nullopt if it has the colour of its
/// column.
std::optional<DayMark> MarkOf(const MonthCell& cell, int index);

/// The mark to store for a cell of the grid: as above, or, if holidays are not stored, only if the user
/// changed its colour.
std::optional<DayMark> MarkOf(const MonthGrid& grid, int cell);

/// "休日", "半日", "平日".
QString SpokenMark(DayMark mark);

/// What a screen reader says for a day's cell: date, weekday, national holiday, the mark that its colour
/// means, and the other contents of the cell.
QString SpokenName(const MonthGrid& grid, int cell);

/// The statements that delete all marks of the month, one per table.
QStringList MonthDeletions(const MonthShape& month);

/// The statements that delete all marks up to `last`, including those of earlier years.
QStringList DeletionsUpTo(QDate last);

/// The statements that replace the marks of `month` according to the grid's colours. They use the cells of
/// that month's days, even if the grid shows another month.
QStringList MonthStatements(const MonthGrid& grid, const MonthShape& month);

}  // namespace tickwell::days

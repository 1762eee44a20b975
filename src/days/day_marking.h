// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <optional>

#include "days/month_grid.h"

namespace tickwell {

/// What a click on a day does; the number is that of its option button.
enum class CalendarMode { Normal, Holidays, Halfdays };

/// The colour that a mark gives a day.
DayColor ColorOf(DayMark mark);

/// The colour that a marking mode sets and takes away; `mode` is not Normal.
DayColor ColorOf(CalendarMode mode);

/// The colour after a click. There are two of them: what is not of the mode's colour gets it, what is becomes
/// black. A Saturday that was made red and taken back is an ordinary day.
DayColor ToggledColor(CalendarMode mode, DayColor color);

/// What is stored for a cell as it stands; nothing where its colour is the column's own. A red weekday is
/// stored also when it is a national holiday, so that it stays one when the holiday is abolished.
std::optional<DayMark> MarkOf(const MonthCell& cell, int index);

/// "休日", "半日", "平日".
QString SpokenMark(DayMark mark);

/// Takes all marks of the month away, table after table.
QStringList MonthDeletions(const MonthShape& month);

/// The same with all marks up to `last`, of all years before as well.
QStringList DeletionsUpTo(QDate last);

/// Stores the marks of `month` anew, as the grid's colours have them. The grid is read where the days of that
/// month would stand, also while it still shows another one.
QStringList MonthStatements(const MonthGrid& grid, const MonthShape& month);

}  // namespace tickwell

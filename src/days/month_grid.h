// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>
#include <array>

#include "core/settings.h"
#include "days/month_rows.h"

namespace tickwell::days {

/// Colour of a day's number, red + green * 256 + blue * 65536. Marks exist in the grid only as colours: a
/// half-day and a Saturday differ only in their columns.
enum class DayColor : qint32 { Black = 0, Red = 0xFF, Blue = 0xFF0000 };

/// The colour of a day with that mark.
DayColor ColorOf(DayMark mark);

inline constexpr int kGridColumns = 7;   // Sunday to Saturday
inline constexpr int kFirstDayCell = 7;  // row 0 holds the names of the weekdays
inline constexpr int kGridCells = 49;

/// A button of the grid.
struct MonthCell {
    QString caption;
    DayColor color = DayColor::Black;
    QString toolTip;  ///< the name of a national holiday or of its substitute
    bool isVisible = true;
    bool isPressed = false;
    bool isToday = false;         ///< to be framed
    bool hasAnniversary = false;  ///< to be marked with a dot
    QString below = {};           ///< a second line in half size: the six-day week or the old date
    QString almanac = {};         ///< both of them: "旧暦10月14日 大安"

    bool operator==(const MonthCell&) const = default;
};

/// The calendar's grid of seven columns and seven rows, and the heading above it. Cells outside the month are
/// hidden but keep their colour and tool tip.
struct MonthGrid {
    MonthGrid();

    MonthCell& At(int cell) { return cells.at(static_cast<std::size_t>(cell)); }
    const MonthCell& At(int cell) const { return cells.at(static_cast<std::size_t>(cell)); }

    bool operator==(const MonthGrid&) const = default;

    QString heading;
    QDate first;  ///< of the month in the grid; null before there is one
    std::array<MonthCell, kGridCells> cells;
    std::array<DayColor, kGridCells> ownColors{};  ///< of the cells without the user's marks
    bool areHolidaysStored = true;                 ///< as in MonthRows
    UnderDays under = UnderDays::Nothing;          ///< what the cells have as their second line
};

constexpr bool IsDayCell(int cell) {
    return cell >= kFirstDayCell && cell < kGridCells;
}
constexpr bool IsSundayCell(int cell) {
    return cell % kGridColumns == 0;
}
constexpr bool IsSaturdayCell(int cell) {
    return (cell + 1) % kGridColumns == 0;
}

/// "1998年（平成10年）10月". All of 1989 is 平成元年; 1926 is 昭和1年, and 平成 never ends. With eras by
/// date, a month in which the era changes has both: "1989年（昭和64年／平成元年）1月".
QString MonthHeading(int year, int month, const EraStyle& eras = {});

/// Fills the grid with a month: the colours of the columns, the holidays in their order, then the user's
/// marks. Only today's cell is pressed. No cell has a dot.
void FillGrid(MonthGrid& grid, const MonthShape& month, const MonthRows& rows, QDate today,
              const FurtherSettings& further = {});

/// Puts dots at these days of the grid's month, and removes all others.
void PutDots(MonthGrid& grid, const QList<int>& days);

}  // namespace tickwell::days

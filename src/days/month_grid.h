// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>
#include <array>

#include "days/month_rows.h"

namespace tickwell {

/// Colour of a day's number, red + green * 256 + blue * 65536. It alone carries what the user marks:
/// half-days and Saturdays are told apart by nothing else than their column.
enum class DayColor : qint32 { Black = 0, Red = 0xFF, Blue = 0xFF0000 };

inline constexpr int kGridColumns = 7;   // Sunday to Saturday
inline constexpr int kFirstDayCell = 7;  // row 0 holds the names of the weekdays
inline constexpr int kGridCells = 49;

/// A button of the grid.
struct MonthCell {
    QString caption;
    DayColor color = DayColor::Black;
    QString toolTip;  ///< a national holiday's name, or that of its substitute
    bool isVisible = true;
    bool isPressed = false;

    bool operator==(const MonthCell&) const = default;
};

/// The calendar's grid: seven columns and seven rows, and the heading above them. Cells outside the month
/// keep colour and tool tip while they are hidden.
struct MonthGrid {
    MonthGrid();

    MonthCell& At(int cell) { return cells.at(static_cast<std::size_t>(cell)); }
    const MonthCell& At(int cell) const { return cells.at(static_cast<std::size_t>(cell)); }

    bool operator==(const MonthGrid&) const = default;

    QString heading;
    QDate first;  ///< of the month that stands here; null before there is one
    std::array<MonthCell, kGridCells> cells;
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

/// "1998年（平成10年）10月". The whole of 1989 is 平成元年; 1926 is 昭和1年, and 平成 never ends.
QString MonthHeading(int year, int month);

/// Puts a month into the grid: colours of the columns, national holidays in the order of their rows, then
/// what the user marked. The day after a national holiday on a Sunday is its substitute, whatever it is
/// itself; marks have none. Today's cell comes out pressed, and no other.
void FillGrid(MonthGrid& grid, const MonthShape& month, const MonthRows& rows, QDate today);

/// What a screen reader says of a day's cell: date, weekday, national holiday, and the mark that its colour
/// stands for.
QString SpokenName(const MonthGrid& grid, int cell);

}  // namespace tickwell

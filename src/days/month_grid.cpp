// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/month_grid.h"

#include "core/words.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHeiseiFirst = 1989;
constexpr int kBeforeShowa = 1925;

QString EraPart(int year) {
    if (year > kHeiseiFirst) {
        return u"年（平成"_s + QString::number(HeiseiYear(year)) + u"年）";
    }
    if (year == kHeiseiFirst) {
        return u"年（平成元年）"_s;
    }
    return u"年（昭和"_s + QString::number(year - kBeforeShowa) + u"年）";
}

DayColor ColorOfColumn(int cell) {
    if (IsSundayCell(cell)) {
        return DayColor::Red;
    }
    return IsSaturdayCell(cell) ? DayColor::Blue : DayColor::Black;
}

/// Processes the rows in order: if a day is both a substitute and another holiday, the last row determines
/// its name.
void PutHolidays(MonthGrid& grid, const MonthShape& month, const QList<NamedDay>& holidays) {
    for (const NamedDay& holiday : holidays) {
        const qint64 wanted = static_cast<qint64>(holiday.day) + month.CellOf(0);
        if (wanted < kFirstDayCell || wanted >= kGridCells) {
            continue;  // not a day of any month
        }
        const int cell = static_cast<int>(wanted);
        if (IsSundayCell(cell)) {
            grid.At(cell + 1).color = DayColor::Red;
            grid.At(cell + 1).toolTip = u"振替休日"_s;
        } else {
            grid.At(cell).color = DayColor::Red;
        }
        grid.At(cell).toolTip = holiday.name;
    }
}

void PutMarks(MonthGrid& grid, const MonthShape& month, const MonthRows& rows) {
    for (const DayMark mark : kDayMarks) {  // the later overrides the earlier
        for (const int day : rows.marks.at(static_cast<std::size_t>(mark))) {
            grid.At(month.CellOf(day)).color = ColorOf(mark);
        }
    }
}

void ShowDays(MonthGrid& grid, const MonthShape& month) {
    for (int cell = kFirstDayCell; cell < kGridCells; ++cell) {
        const int day = cell - month.CellOf(0);
        MonthCell& button = grid.At(cell);
        button.isVisible = day >= 1 && day <= month.Days();
        button.caption = button.isVisible ? QString::number(day) : QString();
        button.isPressed = button.isPressed && !button.isVisible;
    }
}

}  // namespace

DayColor ColorOf(DayMark mark) {
    switch (mark) {
        case DayMark::Holiday:
            return DayColor::Red;
        case DayMark::Halfday:
            return DayColor::Blue;
        case DayMark::Usuallyday:
            return DayColor::Black;
    }
    Q_UNREACHABLE();
}

MonthGrid::MonthGrid() {
    for (int column = 0; column < kGridColumns; ++column) {
        At(column) = {WeekdayLetter(column, 0), ColorOfColumn(column), QString(), true, false};
    }
}

QString MonthHeading(int year, int month) {
    return QString::number(year) + EraPart(year) + QString::number(month) + u"月";
}

void FillGrid(MonthGrid& grid, const MonthShape& month, const MonthRows& rows, QDate today) {
    grid.heading = MonthHeading(month.first.year(), month.first.month());
    grid.first = month.first;
    for (MonthCell& cell : grid.cells) {
        cell.toolTip.clear();
    }
    for (int cell = kFirstDayCell; cell < kGridCells; ++cell) {
        grid.At(cell).color = ColorOfColumn(cell);
    }
    PutHolidays(grid, month, rows.holidays);
    PutMarks(grid, month, rows);
    ShowDays(grid, month);
    if (today >= month.first && today <= month.last) {
        grid.At(month.CellOf(today.day())).isPressed = true;
    }
}

}  // namespace tickwell::days

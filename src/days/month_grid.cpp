// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/month_grid.h"

#include "core/old_calendar.h"
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

void PutHolidays(MonthGrid& grid, const MonthShape& month, const QList<NamedDay>& holidays) {
    for (const NamedDay& holiday : holidays) {
        const int cell = month.CellOf(holiday.day);
        grid.At(cell).color = DayColor::Red;
        grid.At(cell).toolTip = holiday.name;
    }
}

/// "年（昭和64年／平成元年）" if the era changes within the month.
QString EraPartByDate(QDate first, const EraStyle& eras) {
    const auto begin = EraYearOf(first, eras);
    const auto end = EraYearOf(first.addMonths(1).addDays(-1), eras);
    if (!begin || !end) {
        return u"年"_s;
    }
    const auto text = [](const EraYear& era) -> QString { return era.name + era.YearText() + u"年"; };
    const bool changes = begin->name != end->name;
    return u"年（"_s + text(*begin) + (changes ? u"／"_s + text(*end) : QString()) + u"）";
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

/// "大安", "10/14", or in a leap month "閏6/1".
QString BelowText(const OldDate& date, UnderDays under) {
    if (under == UnderDays::SixDay) {
        return RokuyoName(date);
    }
    return (date.isLeap ? u"閏"_s : QString()) + QString::number(date.month) + u'/' +
           QString::number(date.day);
}

void PutOldDates(MonthGrid& grid, const MonthShape& month, UnderDays under) {
    const bool isKnown = under == UnderDays::SixDay || under == UnderDays::OldDate;
    grid.under = isKnown ? under : UnderDays::Nothing;
    for (int cell = kFirstDayCell; cell < kGridCells; ++cell) {
        MonthCell& button = grid.At(cell);
        button.below.clear();
        button.almanac.clear();
        const auto date = OldDateOf(month.first.addDays(cell - month.CellOf(1)));
        if (isKnown && button.isVisible && date) {
            button.below = BelowText(*date, under);
            button.almanac = OldDateText(*date) + u' ' + RokuyoName(*date);
        }
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

QString MonthHeading(int year, int month, const EraStyle& eras) {
    const QString era = eras.byDate ? EraPartByDate(QDate(year, month, 1), eras) : EraPart(year);
    return QString::number(year) + era + QString::number(month) + u"月";
}

void FillGrid(MonthGrid& grid, const MonthShape& month, const MonthRows& rows, QDate today,
              const FurtherSettings& further) {
    grid.heading = MonthHeading(month.first.year(), month.first.month(), further.calendar.eras);
    grid.first = month.first;
    grid.areHolidaysStored = rows.areHolidaysStored;
    for (MonthCell& cell : grid.cells) {
        cell.toolTip.clear();
        cell.isToday = false;
        cell.hasAnniversary = false;
    }
    for (int cell = kFirstDayCell; cell < kGridCells; ++cell) {
        grid.At(cell).color = ColorOfColumn(cell);
    }
    PutHolidays(grid, month, rows.holidays);
    for (int cell = 0; cell < kGridCells; ++cell) {
        grid.ownColors.at(static_cast<std::size_t>(cell)) = grid.At(cell).color;
    }
    PutMarks(grid, month, rows);
    ShowDays(grid, month);
    PutOldDates(grid, month, static_cast<UnderDays>(further.calendar.underDays));
    if (today >= month.first && today <= month.last) {
        grid.At(month.CellOf(today.day())).isPressed = true;
        grid.At(month.CellOf(today.day())).isToday = further.corrections.showsToday;
    }
}

void PutDots(MonthGrid& grid, const QList<int>& days) {
    const MonthShape month = ShapeOf(grid.first);
    for (int cell = kFirstDayCell; cell < kGridCells; ++cell) {
        grid.At(cell).hasAnniversary = days.contains(cell - month.CellOf(0));
    }
}

}  // namespace tickwell::days

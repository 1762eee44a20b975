// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_marking.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

QString Deletion(DayMark mark, const QString& condition) {
    const QStringView table = TableOf(mark);
    return u"DELETE "_s + table + u".Date FROM " + table + u" WHERE Date " + condition;
}

QStringList Deletions(const QString& condition) {
    QStringList statements;
    for (const DayMark mark : kDayMarks) {
        statements.append(Deletion(mark, condition));
    }
    return statements;
}

}  // namespace

DayColor ColorOf(CalendarMode mode) {
    Q_ASSERT(mode != CalendarMode::Normal);
    return mode == CalendarMode::Halfdays ? DayColor::Blue : DayColor::Red;
}

DayColor ToggledColor(CalendarMode mode, DayColor color) {
    return color == ColorOf(mode) ? DayColor::Black : ColorOf(mode);
}

std::optional<DayMark> MarkOf(const MonthCell& cell, int index) {
    const bool isSunday = IsSundayCell(index);
    const bool isSaturday = IsSaturdayCell(index);
    const bool hasName = !cell.toolTip.isEmpty();
    if (cell.color == DayColor::Black && (hasName || isSaturday || isSunday)) {
        return DayMark::Usuallyday;
    }
    if (cell.color == DayColor::Red && !isSunday) {
        return DayMark::Holiday;
    }
    if (cell.color == DayColor::Blue && (hasName || !isSaturday)) {
        return DayMark::Halfday;
    }
    return std::nullopt;
}

std::optional<DayMark> MarkOf(const MonthGrid& grid, int cell) {
    const MonthCell& each = grid.At(cell);
    if (grid.areHolidaysStored) {
        return MarkOf(each, cell);
    }
    if (each.color == grid.ownColors.at(static_cast<std::size_t>(cell))) {
        return std::nullopt;
    }
    switch (each.color) {
        case DayColor::Black:
            return DayMark::Usuallyday;
        case DayColor::Red:
            return DayMark::Holiday;
        case DayColor::Blue:
            return DayMark::Halfday;
    }
    Q_UNREACHABLE();
}

QString SpokenMark(DayMark mark) {
    switch (mark) {
        case DayMark::Holiday:
            return u"休日"_s;
        case DayMark::Halfday:
            return u"半日"_s;
        case DayMark::Usuallyday:
            return u"平日"_s;
    }
    Q_UNREACHABLE();
}

QString SpokenName(const MonthGrid& grid, int cell) {
    const MonthCell& button = grid.At(cell);
    if (!button.isVisible || !IsDayCell(cell)) {
        return button.caption;
    }
    QStringList parts{QString::number(grid.first.year()) + u"年" + QString::number(grid.first.month()) +
                      u"月" + button.caption + u"日 " + grid.At(cell % kGridColumns).caption + u"曜日"};
    if (!button.toolTip.isEmpty()) {
        parts.append(button.toolTip);
    }
    if (const auto mark = MarkOf(grid, cell)) {
        parts.append(SpokenMark(*mark));
    }
    if (!button.almanac.isEmpty()) {
        parts.append(button.almanac);
    }
    if (button.isToday) {
        parts.append(u"今日"_s);
    }
    if (button.hasAnniversary) {
        parts.append(u"記念日あり"_s);
    }
    return parts.join(u'、');
}

QStringList MonthDeletions(const MonthShape& month) {
    return Deletions(u"BETWEEN "_s + DateLiteral(month.first) + u" AND " + DateLiteral(month.last));
}

QStringList DeletionsUpTo(QDate last) {
    return Deletions(u"<= "_s + DateLiteral(last));
}

QStringList MonthStatements(const MonthGrid& grid, const MonthShape& month) {
    QStringList statements = MonthDeletions(month);
    for (int day = 1; day <= month.Days(); ++day) {
        const int cell = month.CellOf(day);
        if (const auto mark = MarkOf(grid, cell)) {
            const QDate date(month.first.year(), month.first.month(), day);
            statements.append(u"INSERT INTO "_s + TableOf(*mark) + u"  VALUES (" + DateLiteral(date) + u')');
        }
    }
    return statements;
}

}  // namespace tickwell::days

// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/month_model.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

constexpr int kRed = 255;
constexpr int kBlue = 255 * 65536;

/// The tip of the last row that applies to this day: a holiday on the day itself, or one on the Sunday
/// before.
QString TipOf(const QList<ModelHoliday>& holidays, int month, int day, int weekday) {
    QString tip;
    for (const ModelHoliday& holiday : holidays) {
        if (holiday.month != month) {
            continue;
        }
        if (holiday.day == day) {
            tip = holiday.name;
        } else if (weekday == 1 && holiday.day == day - 1) {
            tip = u"振替休日"_s;
        }
    }
    return tip;
}

int ColorOfDay(const ModelTables& tables, const ModelDate& date, int weekday, bool isOff) {
    if (tables.black.count(date) > 0) {
        return 0;
    }
    if (tables.blue.count(date) > 0) {
        return kBlue;
    }
    if (tables.red.count(date) > 0 || isOff || weekday == 0) {
        return kRed;
    }
    return weekday == 6 ? kBlue : 0;
}

}  // namespace

int DaysInMonth(int year, int month) {
    if (month == 2) {
        const bool isLeap = year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
        return isLeap ? 29 : 28;
    }
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

int WeekdayOf(const ModelDate& date) {
    // Counts from 1 January 1900, a Monday.
    int days = 1;
    for (int year = 1900; year < date.year; ++year) {
        days += DaysInMonth(year, 2) == 29 ? 366 : 365;
    }
    for (int month = 1; month < date.month; ++month) {
        days += DaysInMonth(date.year, month);
    }
    return (days + date.day - 1) % 7;
}

QString ModelHeading(int year, int month) {
    QString era = u"平成"_s + QString::number(year - 1988);
    if (year == 1989) {
        era = u"平成元"_s;
    } else if (year < 1989) {
        era = u"昭和"_s + QString::number(year - 1925);
    }
    return u"%1年（%2年）%3月"_s.arg(QString::number(year), era, QString::number(month));
}

ModelCells ModelMonth(const ModelTables& tables, int year, int month) {
    ModelCells cells;
    int day = 1 - WeekdayOf({year, month, 1});  // of the first cell, as if the month had days before the 1st
    int weekday = 0;
    for (ModelCell& cell : cells) {
        bool isOff = false;
        for (const ModelHoliday& holiday : tables.holidays) {
            const bool isItself = holiday.day == day && weekday != 0;
            const bool isSubstitute = holiday.day == day - 1 && weekday == 1;
            isOff = isOff || (holiday.month == month && (isItself || isSubstitute));
        }
        cell.tip = TipOf(tables.holidays, month, day, weekday);
        cell.isVisible = day >= 1 && day <= DaysInMonth(year, month);
        cell.caption = cell.isVisible ? QString::number(day) : QString();
        const ModelDate date = cell.isVisible ? ModelDate{year, month, day} : ModelDate{};
        cell.color = ColorOfDay(tables, date, weekday, isOff);
        ++day;
        weekday = (weekday + 1) % 7;
    }
    return cells;
}

void StoreMonth(ModelTables& tables, const ModelCells& cells, int year, int month) {
    EraseMarks(tables, {year, month, 1}, {year, month, DaysInMonth(year, month)});
    for (int day = 1; day <= DaysInMonth(year, month); ++day) {
        const ModelDate date{year, month, day};
        const int weekday = WeekdayOf(date);
        const ModelCell& cell = cells.at(static_cast<std::size_t>(WeekdayOf({year, month, 1}) + day - 1));
        const bool hasTip = !cell.tip.isEmpty();
        if (cell.color == kRed) {
            if (weekday != 0) {
                tables.red.insert(date);
            }
        } else if (cell.color == kBlue) {
            if (weekday != 6 || hasTip) {
                tables.blue.insert(date);
            }
        } else if (weekday == 0 || weekday == 6 || hasTip) {
            tables.black.insert(date);
        }
    }
}

void EraseMarks(ModelTables& tables, const ModelDate& first, const ModelDate& last) {
    for (auto* marks : {&tables.red, &tables.blue, &tables.black}) {
        marks->erase(marks->lower_bound(first), marks->upper_bound(last));
    }
}

}  // namespace tickwell::days

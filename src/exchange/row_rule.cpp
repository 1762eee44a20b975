// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/row_rule.h"

#include <algorithm>

#include "core/words.h"
#include "days/day_rule.h"

namespace tickwell::exchange {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstYear = 1990;
constexpr int kLeapYear = 2000;
constexpr int kLastYear = kFirstYear + 40;  // every weekday falls on 29 February within 28 years
constexpr int kMostYear = 9999;
constexpr int kMonths = 12;
constexpr int kMostDay = 31;
constexpr int kWeeks = 5;

bool IsDay(int day) {
    return day >= 1 && day <= kMostDay;
}

bool IsWeek(int week) {
    return week / 10 >= 1 && week / 10 <= kWeeks && week % 10 >= 1 && week % 10 <= days::kDaysInWeek;
}

/// The first date from `first` to `last` on which a row falls, month by month; invalid if there is none.
QDate FirstDate(const days::Anniversary& row, int firstYear, int lastYear) {
    for (int year = firstYear; year <= lastYear; ++year) {
        for (int month = 1; month <= kMonths; ++month) {
            const bool isMonth = row.month == 0 || row.month == month;
            const int days = isMonth ? QDate(year, month, 1).daysInMonth() : 0;
            for (int day = 1; day <= days; ++day) {
                if (const QDate date(year, month, day); FallsOn(row, date)) {
                    return date;
                }
            }
        }
    }
    return {};
}

/// The rule of a row that has either a day or a week; nullopt if it falls on no day.
std::optional<DayRule> RuleOf(const days::Anniversary& row) {
    if (row.year < 0 || row.year > kMostYear || row.month < 0 || row.month > kMonths) {
        return std::nullopt;
    }
    const bool isLeapDay = row.year == 0 && row.month == 2 && row.day == 29;
    DayRule rule{.start = row.year != 0 ? FirstDate(row, row.year, row.year)
                                        : FirstDate(row, isLeapDay ? kLeapYear : kFirstYear, kLastYear),
                 .rule = std::nullopt};
    if (!rule.start.isValid()) {
        return std::nullopt;
    }
    if (row.year != 0 && row.month != 0) {
        return rule;
    }
    Recurrence recurrence;
    recurrence.frequency = row.month == 0 ? Frequency::Monthly : Frequency::Yearly;
    if (row.month != 0) {
        recurrence.months.push_back(row.month);
    }
    if (row.day != 0) {
        recurrence.monthDays.push_back(row.day);
    } else {
        recurrence.weekdays.push_back({row.week / 10, row.week % 10});
    }
    if (row.year != 0) {
        recurrence.until = QDate(row.year, kMonths, kMostDay);
    }
    rule.rule = recurrence;
    return rule;
}

/// 「10日」、「第2月曜」、またはその両方。
QString WhenInMonth(const days::Anniversary& row) {
    QStringList texts;
    if (IsDay(row.day)) {
        texts.append(u"%1日"_s.arg(row.day));
    }
    if (IsWeek(row.week)) {
        texts.append(u"第%1"_s.arg(row.week / 10) + WeekdayLetter(row.week % 10, 1) + u"曜");
    }
    return texts.join(u'・');
}

}  // namespace

std::vector<DayRule> RulesOf(const days::Anniversary& row) {
    std::vector<DayRule> rules;
    const auto add = [&](int day, int week) {
        const std::optional<DayRule> rule =
            RuleOf({.name = {}, .year = row.year, .month = row.month, .day = day, .week = week});
        if (rule && std::find(rules.begin(), rules.end(), *rule) == rules.end()) {
            rules.push_back(*rule);
        }
    };
    if (IsDay(row.day)) {
        add(row.day, 0);
    }
    if (IsWeek(row.week)) {
        add(0, row.week);
    }
    return rules;
}

bool FallsOn(const days::Anniversary& row, QDate date) {
    return (row.day == date.day() || row.week == days::WeekCode(date)) &&
           (row.month == 0 || row.month == date.month()) && (row.year == 0 || row.year == date.year());
}

QString WhenText(const days::Anniversary& row) {
    const QString inMonth = WhenInMonth(row);
    if (row.month == 0) {
        return (row.year == 0 ? QString() : u"%1年 "_s.arg(row.year)) + u"毎月 " + inMonth;
    }
    const QString month = u"%1月"_s.arg(row.month) + (IsDay(row.day) ? u""_s : u" "_s) + inMonth;
    return row.year == 0 ? u"毎年 "_s + month : u"%1年"_s.arg(row.year) + month;
}

QString DayText(QDate date) {
    return date.isValid() ? u"%1年%2月%3日"_s.arg(date.year()).arg(date.month()).arg(date.day()) : QString();
}

}  // namespace tickwell::exchange

// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/yearly_condition.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <bitset>

#include "days/day_rule.h"

namespace tickwell::book {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMonths = 12;
constexpr int kPeriod = 400;  // years after which the calendar repeats, weekdays included
constexpr std::size_t kCodes = 64;

/// Days of the month or week codes.
using Numbers = std::bitset<kCodes>;

struct MonthDays {
    Numbers days;
    Numbers weeks;
};

/// The days of a range, by month.
std::array<MonthDays, kMonths> MonthsOf(QDate first, QDate last) {
    std::array<MonthDays, kMonths> months;
    const QDate end = std::min(last, first.addYears(kPeriod));
    for (QDate date = first; date <= end; date = date.addDays(1)) {
        MonthDays& month = months.at(static_cast<std::size_t>(date.month() - 1));
        month.days.set(static_cast<std::size_t>(date.day()));
        month.weeks.set(static_cast<std::size_t>(days::WeekCode(date)));
    }
    return months;
}

/// "Day BETWEEN 1 AND 9" for each run of consecutive numbers.
QStringList Runs(const QString& column, const Numbers& numbers) {
    QStringList runs;
    for (std::size_t first = 0; first < kCodes; ++first) {
        if (!numbers.test(first)) {
            continue;
        }
        std::size_t last = first;
        while (last + 1 < kCodes && numbers.test(last + 1)) {
            ++last;
        }
        runs.append(column + u" BETWEEN "_s + QString::number(first) + u" AND " + QString::number(last));
        first = last;
    }
    return runs;
}

}  // namespace

QString YearlyCondition(QDate first, QDate last) {
    QStringList alternatives;
    int number = 0;
    for (const MonthDays& month : MonthsOf(first, last)) {
        ++number;
        if (month.days.any()) {
            const QStringList runs = Runs(u"Day"_s, month.days) + Runs(u"Week"_s, month.weeks);
            alternatives.append(u"( Month="_s + QString::number(number) + u" AND ( " + runs.join(u" OR ") +
                                u" ) )");
        }
    }
    return u" AND ( "_s + alternatives.join(u" OR ") + u" )";
}

}  // namespace tickwell::book

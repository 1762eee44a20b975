// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "days/day_rule.h"
#include "exchange/event_rows.h"
#include "exchange/row_rule.h"

namespace tickwell::exchange {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLastWeek = 5;

/// A day of the month or a week code; the other one is 0.
struct InMonth {
    int day = 0;
    int week = 0;
};

/// The days of a month, or why a row cannot name them.
struct InMonths {
    std::vector<InMonth> days;
    QString reason;
};

InMonths Refused(const QString& reason) {
    return {{}, reason};
}

QString IntervalReason(const Recurrence& rule) {
    const bool isYearly = rule.frequency == Frequency::Yearly;
    if (rule.interval == 2) {
        return isYearly ? u"隔年の予定"_s : u"隔月の予定"_s;
    }
    return (isYearly ? u"%1年ごとの予定"_s : u"%1か月ごとの予定"_s).arg(rule.interval);
}

/// Why a rule is refused whatever days it names; empty if it is not.
QString ReasonOf(const Recurrence& rule) {
    switch (rule.frequency) {
        case Frequency::Weekly:
            return rule.interval == 2 ? u"隔週の予定"_s : u"毎週の予定"_s;
        case Frequency::Daily:
            return u"毎日の予定"_s;
        case Frequency::OfHours:
            return u"一日に何度もある予定"_s;
        case Frequency::Yearly:
        case Frequency::Monthly:
            break;
    }
    if (rule.ofOtherCalendar) {
        return u"ほかの暦の予定"_s;
    }
    if (rule.byWeekNumber) {
        return u"年の何週目かで決まる予定"_s;
    }
    if (rule.byYearDay) {
        return u"年の何日目かで決まる予定"_s;
    }
    if (rule.byTime) {
        return u"時刻で繰り返す予定"_s;
    }
    if (rule.interval > 1) {
        return IntervalReason(rule);
    }
    return rule.count > 0 ? u"回数の決まった予定"_s : QString();
}

bool CountsFromEnd(const Recurrence& rule) {
    const auto isNegative = [](int number) { return number < 0; };
    return std::any_of(rule.monthDays.begin(), rule.monthDays.end(), isNegative) ||
           std::any_of(rule.positions.begin(), rule.positions.end(), isNegative) ||
           std::any_of(rule.weekdays.begin(), rule.weekdays.end(),
                       [](const NthWeekday& day) { return day.position < 0; });
}

/// The week of the month whose seven days are `monthDays`: "the Monday from the 8th to the 14th" is the
/// second one. 0 if they are no such week.
int WeekOfDays(std::vector<int> monthDays) {
    std::sort(monthDays.begin(), monthDays.end());
    monthDays.erase(std::unique(monthDays.begin(), monthDays.end()), monthDays.end());
    const int first = monthDays.front();
    const bool isWeek = monthDays.size() == days::kDaysInWeek && first % days::kDaysInWeek == 1 &&
                        monthDays.back() == first + days::kDaysInWeek - 1;
    return isWeek ? first / days::kDaysInWeek + 1 : 0;
}

/// BYSETPOS=1 chooses what a rule with one day chooses anyway.
bool ChoosesAll(const Recurrence& rule) {
    return rule.positions.empty() ||
           (rule.positions == std::vector{1} && rule.monthDays.size() + rule.weekdays.size() <= 1);
}

InMonths WeekdaysOf(const Recurrence& rule) {
    InMonths found;
    for (const NthWeekday& each : rule.weekdays) {
        std::vector<int> weeks{each.position};
        if (each.position == 0) {
            if (rule.positions.empty()) {
                return Refused(u"毎週の予定"_s);
            }
            if (rule.weekdays.size() > 1) {
                return Refused(u"曜日のどれかに当たる予定"_s);
            }
            weeks = rule.positions;
        } else if (!ChoosesAll(rule)) {
            return Refused(u"何番目かで選ぶ予定"_s);
        }
        for (const int week : weeks) {
            if (week > kLastWeek) {
                return Refused(u"第6週以後の予定"_s);
            }
            found.days.push_back({.day = 0, .week = 10 * week + each.weekday});
        }
    }
    return found;
}

InMonths DaysInMonth(const Recurrence& rule, QDate start) {
    if (CountsFromEnd(rule)) {
        return Refused(u"月の終わりから数える予定"_s);
    }
    if (!rule.monthDays.empty() && !rule.weekdays.empty()) {
        const int week = WeekOfDays(rule.monthDays);
        const bool isWeekday = rule.weekdays.size() == 1 && rule.weekdays.front().position == 0;
        return week > 0 && isWeekday && rule.positions.empty()
                   ? InMonths{{{.day = 0, .week = 10 * week + rule.weekdays.front().weekday}}, {}}
                   : Refused(u"日と曜日の両方で決まる予定"_s);
    }
    if (!rule.weekdays.empty()) {
        return WeekdaysOf(rule);
    }
    if (!ChoosesAll(rule)) {
        return Refused(u"何番目かで選ぶ予定"_s);
    }
    InMonths found;
    for (const int day : rule.monthDays) {
        found.days.push_back({.day = day, .week = 0});
    }
    if (found.days.empty()) {
        found.days.push_back({.day = start.day(), .week = 0});
    }
    return found;
}

/// The months of a rule; 0 means each.
std::vector<int> MonthsOf(const Recurrence& rule, QDate start) {
    if (!rule.months.empty()) {
        return rule.months;
    }
    const bool isEach = rule.frequency == Frequency::Monthly || !rule.monthDays.empty();
    return {isEach ? 0 : start.month()};
}

}  // namespace

EventRows EndlessRowsOf(const Recurrence& rule, QDate start) {
    if (QString reason = ReasonOf(rule); !reason.isEmpty()) {
        return {{}, reason};
    }
    const bool isYearly = rule.frequency == Frequency::Yearly;
    if (isYearly && rule.months.empty() && !rule.weekdays.empty()) {
        const bool isEach = rule.weekdays.front().position == 0 && rule.positions.empty();
        return {{}, isEach ? u"毎週の予定"_s : u"年の何番目かの曜日で決まる予定"_s};
    }
    const std::vector<int> months = MonthsOf(rule, start);
    if (isYearly && !rule.positions.empty() && (months.size() > 1 || months.front() == 0)) {
        return {{}, u"何番目かで選ぶ予定"_s};
    }
    const InMonths inMonths = DaysInMonth(rule, start);
    EventRows found{{}, inMonths.reason};
    for (const int month : months) {
        for (const InMonth& each : inMonths.days) {
            const days::Anniversary row{
                .name = {}, .year = 0, .month = month, .day = each.day, .week = each.week};
            const bool isNew = std::find(found.rows.begin(), found.rows.end(), row) == found.rows.end();
            if (isNew && !RulesOf(row).empty()) {
                found.rows.push_back(row);
            }
        }
    }
    if (found.rows.empty() && found.reason.isEmpty()) {
        found.reason = u"どの日にも当たらない予定"_s;
    }
    return found;
}

}  // namespace tickwell::exchange

// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/event_rows.h"

#include <algorithm>

#include "exchange/row_rule.h"

namespace tickwell::exchange {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostDates = 1000;  // of RDATE and EXDATE together: each is compared with each
constexpr qint64 kMostEventDays = 31;   // of an event; a longer one is no anniversary

days::Anniversary SingleRow(QDate date) {
    return {.name = {}, .year = date.year(), .month = date.month(), .day = date.day(), .week = 0};
}

EventRows RefusedRows(const QString& reason) {
    return {{}, reason};
}

void Add(std::vector<days::Anniversary>& rows, const days::Anniversary& row) {
    if (std::find(rows.begin(), rows.end(), row) == rows.end()) {
        rows.push_back(row);
    }
}

bool FallOn(const std::vector<days::Anniversary>& rows, QDate date) {
    return std::any_of(rows.begin(), rows.end(),
                       [date](const days::Anniversary& row) { return FallsOn(row, date); });
}

/// Whether an event still falls on the days of the row that it was written for: another program may have
/// moved it since.
bool IsOwnRow(const CalendarEvent& event) {
    if (!event.row || event.rules.size() > 1 || !event.dates.isEmpty() || !event.excluded.isEmpty() ||
        event.days != 1) {
        return false;
    }
    const DayRule here{.start = event.start,
                       .rule = event.rules.empty() ? std::nullopt : std::optional(event.rules.front())};
    const std::vector<DayRule> rules = RulesOf(*event.row);
    return std::find(rules.begin(), rules.end(), here) != rules.end();
}

bool HasTooManyDates(const CalendarEvent& event) {
    return event.dates.size() + event.excluded.size() > kMostDates;
}

/// Why an event is refused whatever its rules are; empty if it is not.
QString ReasonOfEvent(const CalendarEvent& event) {
    if (event.isDayOff) {
        return u"休日や印"_s;
    }
    if (event.isUnreadable) {
        return u"日付か繰り返しが読めない予定"_s;
    }
    if (!event.start.isValid()) {
        return u"日付のない予定"_s;
    }
    if (event.replaces.isValid()) {
        return u"繰り返しの一回だけを変えた予定"_s;
    }
    if (event.hasExclusionRule) {
        return u"除く日の規則がある予定"_s;
    }
    if (event.name.trimmed().isEmpty() && !event.row) {
        return u"名前のない予定"_s;
    }
    if (HasTooManyDates(event)) {
        return u"日付が多すぎる予定"_s;
    }
    if (event.days > kMostEventDays) {
        return u"%1日より長い予定"_s.arg(kMostEventDays);
    }
    return event.days > 1 && (!event.rules.empty() || !event.dates.isEmpty()) ? u"何日も続く繰り返しの予定"_s
                                                                              : QString();
}

/// The days of a rule that ends within a year of `start`, one by one.
EventRows EndingRowsOf(const Recurrence& rule, QDate start, const QList<QDate>& excluded) {
    if (rule.until > start.addYears(1)) {
        return RefusedRows(u"終わりの決まった予定"_s);
    }
    const EventRows endless = EndlessRowsOf(rule, start);
    EventRows found{{}, endless.reason};
    for (QDate date = start; found.reason.isEmpty() && date <= rule.until; date = date.addDays(1)) {
        if (FallOn(endless.rows, date) && !excluded.contains(date)) {
            found.rows.push_back(SingleRow(date));
        }
    }
    return found;
}

EventRows RowsOfRules(const CalendarEvent& event, QDate today, const QList<QDate>& replaced) {
    EventRows found;
    const auto isAhead = [today](QDate date) { return date >= today; };
    for (const Recurrence& rule : event.rules) {
        const bool ends = rule.until.isValid();
        if (!ends && std::any_of(event.excluded.begin(), event.excluded.end(), isAhead)) {
            return RefusedRows(u"除かれた日のある予定"_s);
        }
        if (std::any_of(replaced.begin(), replaced.end(), isAhead)) {
            return RefusedRows(u"一回だけ変えた日のある予定"_s);
        }
        EventRows rows =
            ends ? EndingRowsOf(rule, event.start, event.excluded) : EndlessRowsOf(rule, event.start);
        if (!rows.reason.isEmpty()) {
            return rows;
        }
        for (const days::Anniversary& row : rows.rows) {
            Add(found.rows, row);
        }
    }
    return found;
}

}  // namespace

EventRows RowsOf(const CalendarEvent& event, QDate today, const QList<QDate>& replaced) {
    if (QString reason = ReasonOfEvent(event); !reason.isEmpty()) {
        return RefusedRows(reason);
    }
    if (IsOwnRow(event)) {
        return {{*event.row}, {}};
    }
    EventRows found = RowsOfRules(event, today, replaced);
    if (!found.reason.isEmpty()) {
        return found;
    }
    QList<QDate> dates = event.dates;
    for (qint64 day = 0; event.rules.empty() && day < event.days; ++day) {
        dates.append(event.start.addDays(day));
    }
    std::sort(dates.begin(), dates.end());
    const std::vector<days::Anniversary> byRules = found.rows;
    for (const QDate& date : dates) {
        if (!event.excluded.contains(date) && !FallOn(byRules, date)) {
            Add(found.rows, SingleRow(date));
        }
    }
    if (event.isInUnknownZone) {
        return RefusedRows(u"時間帯のわからない予定"_s);
    }
    if (found.rows.empty()) {
        return RefusedRows(u"どの日にも当たらない予定"_s);
    }
    return found;
}

std::vector<days::Anniversary> SingleRowsOf(const CalendarEvent& event, QDate today,
                                            const QList<QDate>& replaced) {
    const bool isComplete = !event.isEndless && !event.isUnreadable && !event.isInUnknownZone &&
                            !event.hasExclusionRule && !event.isDayOff && !HasTooManyDates(event) &&
                            event.days <= kMostEventDays && !event.name.trimmed().isEmpty();
    QList<QDate> days = event.occurrences + event.dates;
    if (event.rules.empty() && event.start.isValid()) {
        days.append(event.start);
    }
    std::sort(days.begin(), days.end());
    std::vector<days::Anniversary> rows;
    for (const QDate& first : days) {
        const bool isThere = isComplete && first >= today && first < EndOfYearFrom(today) &&
                             !event.excluded.contains(first) && !replaced.contains(first);
        for (qint64 day = 0; isThere && day < event.days; ++day) {
            Add(rows, SingleRow(first.addDays(day)));
        }
    }
    return rows;
}

QDate EndOfYearFrom(QDate today) {
    return today.addYears(1);
}

}  // namespace tickwell::exchange

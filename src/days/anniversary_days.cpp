// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/anniversary_days.h"

#include "days/day_rule.h"

namespace tickwell::days {

namespace {

// Searching a day takes some milliseconds in a database of a million rows, and almost no time in a usual one.
constexpr int kDaysAtOnce = 4;

}  // namespace

AnniversaryDays::AnniversaryDays(store::DayDatabase& database, const MonthShape& month)
    : m_database(&database), m_month(month) {}

bool AnniversaryDays::Step() {
    for (int searched = 0; searched < kDaysAtOnce && m_day <= m_month.Days(); ++searched) {
        if (SearchDay()) {
            ++m_day;
            m_search.reset();
        }
    }
    return m_day > m_month.Days();
}

/// True once it is known whether the day has an anniversary; one is enough.
bool AnniversaryDays::SearchDay() {
    if (!m_search) {
        const QDate date = m_month.first.addDays(m_day - 1);
        m_search.emplace(AnniversaryQuery(date.year(), date.month(), date.day(), WeekCode(date)));
        m_search->CountOnly();
    }
    const bool isDone = m_search->Step(*m_database);
    if (m_search->Count() > 0) {
        m_days.append(m_day);
        return true;
    }
    return isDone;
}

}  // namespace tickwell::days

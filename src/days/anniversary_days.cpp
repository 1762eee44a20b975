// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/anniversary_days.h"

#include <QElapsedTimer>

#include "days/day_rule.h"

namespace tickwell::days {

namespace {

constexpr int kSlice = 5;  // ms

}  // namespace

AnniversaryDays::AnniversaryDays(store::DayDatabase& database, const MonthShape& month)
    : m_database(&database), m_month(month) {}

bool AnniversaryDays::Step() {
    QElapsedTimer passed;
    passed.start();
    while (m_day <= m_month.Days()) {
        if (SearchDay()) {
            ++m_day;
            m_search.reset();
        }
        if (passed.elapsed() >= kSlice) {
            break;
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

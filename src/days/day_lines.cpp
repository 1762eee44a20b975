// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_lines.h"

#include <QStringList>

#include "core/days_off.h"
#include "core/old_calendar.h"
#include "core/one_line.h"
#include "core/solar_terms.h"
#include "core/weekday.h"
#include "core/words.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

DayRange LinedDays() {
    return {QDate(1900, 1, 1), QDate(2100, 12, 31)};
}

QString DayLines::LineOf(QDate day) {
    Q_ASSERT(LinedDays().Contains(day));
    const OldDate old = OldDateOf(day).value_or(OldDate{});
    const QStringList columns{day.toString(Qt::ISODate),
                              WeekdayLetter(WeekdayOf(day), 1),
                              OnOneLine(DayOff(day)),
                              OldDateIso(old),
                              RokuyoName(old),
                              SeasonName(day),
                              OnOneLine(m_anniversaries.NamesOn(day).join(u'／'))};
    return columns.join(u'\t');
}

QString DayLines::DayOff(QDate day) {
    if (m_year != day.year()) {
        m_year = day.year();
        m_daysOff = DaysOffOfYear(m_year, m_list);
    }
    return m_daysOff.value(day);
}

}  // namespace tickwell::days

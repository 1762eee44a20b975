// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/law_holidays.h"

#include "core/days_off.h"

namespace tickwell::days {

QList<NamedDay> LawHolidays::DaysOff(const MonthShape& month) const {
    const QMap<QDate, QString> year = DaysOffOfYear(month.first.year(), m_list.List());
    QList<NamedDay> days;
    const auto end = year.upperBound(month.last);
    for (auto day = year.lowerBound(month.first); day != end; ++day) {
        days.append({day.key().day(), day.value()});
    }
    return days;
}

QStringList LawHolidays::NamesOn(QDate day) const {
    const QString name = DaysOffOfYear(day.year(), m_list.List()).value(day);
    return name.isEmpty() ? QStringList() : QStringList{name};
}

}  // namespace tickwell::days

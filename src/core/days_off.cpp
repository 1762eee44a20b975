// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/days_off.h"

#include <algorithm>

#include "core/holiday_law.h"
#include "core/year_month_day.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

/// What the list calls a day off that has no name of its own; the second form occurs only with the ceremonies
/// of 2019.
bool IsOnlyDayOff(const QString& listed) {
    return listed == u"休日" || listed == u"休日（祝日扱い）";
}

QMap<QDate, QString> NamesByLaw(int year) {
    QMap<QDate, QString> names;
    for (const Holiday& holiday : HolidaysByLaw(year)) {
        names.insert(holiday.date, holiday.name);
    }
    return names;
}

/// The law's name for a day that the list only calls a day off.
QString NameOf(const QString& listed, const QString& byLaw) {
    return !byLaw.isEmpty() && IsOnlyDayOff(listed) ? byLaw : listed;
}

bool MeansTheSame(const QString& listed, const QString& byLaw) {
    return listed == byLaw || (listed == u"体育の日（スポーツの日）" && byLaw == u"体育の日");
}

QString DifferenceOf(QDate date, const QString& byLaw, const QString& listed) {
    if (listed.isEmpty()) {
        return YearMonthDay(date) + u"：「" + byLaw + u"」がデータにありません。";
    }
    if (byLaw.isEmpty()) {
        return YearMonthDay(date) + u"：データの「" + listed + u"」は法律にありません。";
    }
    return YearMonthDay(date) + u"：法律では「" + byLaw + u"」、データでは「" + listed + u"」です。";
}

}  // namespace

QMap<QDate, QString> DaysOffOfYear(int year, const HolidayList* list) {
    QMap<QDate, QString> byLaw = NamesByLaw(year);
    if (list == nullptr || !list->Covers(year)) {
        return byLaw;
    }
    QMap<QDate, QString> names;
    const auto end = list->days.lowerBound(QDate(year + 1, 1, 1));
    for (auto day = list->days.lowerBound(QDate(year, 1, 1)); day != end; ++day) {
        names.insert(day.key(), NameOf(day.value(), byLaw.value(day.key())));
    }
    return names;
}

QStringList DifferencesFromLaw(const HolidayList& list) {
    QStringList differences;
    const int lastYear = std::min(list.LastYear(), kLastLawYear);
    for (int year = list.FirstYear(); year <= lastYear; ++year) {
        const QMap<QDate, QString> byLaw = NamesByLaw(year);
        const QMap<QDate, QString> listed = DaysOffOfYear(year, &list);
        QMap<QDate, QString> either = byLaw;
        either.insert(listed);
        for (auto day = either.constBegin(); day != either.constEnd(); ++day) {
            const QString lawName = byLaw.value(day.key());
            const QString listName = listed.value(day.key());
            if (!MeansTheSame(listName, lawName)) {
                differences.append(DifferenceOf(day.key(), lawName, listName));
            }
        }
    }
    return differences;
}

}  // namespace tickwell

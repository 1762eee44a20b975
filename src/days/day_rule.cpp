// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_rule.h"

#include "core/weekday.h"
#include "core/words.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

QStringView TableOf(DayMark mark) {
    switch (mark) {
        case DayMark::Holiday:
            return u"Holiday";
        case DayMark::Halfday:
            return u"Halfday";
        case DayMark::Usuallyday:
            return u"Usuallyday";
    }
    Q_UNREACHABLE();
}

QString DateLiteral(QDate date) {
    return u'#' + QString::number(date.month()) + u'/' + QString::number(date.day()) + u'/' +
           QString::number(date.year()).rightJustified(4, u'0') + u'#';
}

int WeekdayOfLetter(QChar letter) {
    for (int weekday = 1; weekday <= kDaysInWeek; ++weekday) {
        if (WeekdayLetter(weekday, 1) == letter) {
            return weekday;
        }
    }
    return 0;
}

QString WeekdayText(int weekday) {
    return WeekdayLetter(weekday, 1) + u"曜日";
}

int WeekCode(QDate date) {
    const int week = (date.day() - 1) / kDaysInWeek + 1;  // 1..5
    return 10 * week + WeekdayOf(date);
}

QString AnniversaryQuery(qint32 year, qint32 month, qint32 day, qint32 weekCode) {
    return u"SELECT Kinenbi.Name,Kinenbi.Year,Kinenbi.Month,Kinenbi.Day,Kinenbi.Week FROM Kinenbi WHERE "_s +
           u"(Day=" + QString::number(day) + u" OR Week=" + QString::number(weekCode) + u") AND " +  //
           u"(Month=0 OR Month=" + QString::number(month) + u") AND " +                              //
           u"(Year=0 OR Year=" + QString::number(year) + u')';
}

QString HolidayQuery(qint32 month, qint32 day) {
    return MonthHolidayQuery(month) + u" AND Day=" + QString::number(day);
}

QString MonthHolidayQuery(qint32 month) {
    return u"SELECT Syukuzitu.Name,Syukuzitu.Month,Syukuzitu.Day FROM Syukuzitu WHERE Month= "_s +
           QString::number(month);
}

QString MarkedDatesQuery(DayMark mark, QDate first, QDate last) {
    const QStringView table = TableOf(mark);
    return u"SELECT "_s + table + u".Date FROM " + table + u" WHERE Date BETWEEN " + DateLiteral(first) +
           u" AND " + DateLiteral(last);
}

}  // namespace tickwell::days

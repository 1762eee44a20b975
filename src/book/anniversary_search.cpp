// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/anniversary_search.h"

#include <utility>

#include "book/yearly_condition.h"
#include "days/day_rule.h"

namespace tickwell::book {

using namespace Qt::StringLiterals;

namespace {

/// One end of the range as the numbers that the queries use.
struct End {
    explicit End(QDate date)
        : yearNumber(date.year()),
          monthNumber(date.month()),
          dayNumber(date.day()),
          year(QString::number(yearNumber)),
          month(QString::number(monthNumber)),
          day(QString::number(dayNumber)),
          week(QString::number(days::WeekCode(date))) {}

    int yearNumber;
    int monthNumber;
    int dayNumber;
    QString year;
    QString month;
    QString day;
    QString week;
};

QString OneDayCondition(const End& start, const End& end) {
    QString text = u" AND ( ( Year="_s + start.year + u" AND Month=" + start.month +
                   u" AND ( Day=0 OR Day >=" + start.day + u" ) AND ( Week=0 OR Week >= " + start.week +
                   u" ) )" +  //
                   u" OR ( Year=" + start.year + u" AND Month > " + start.month + u" ) )" +
                   u" AND ( ( Year=" + end.year + u" AND Month < " + end.month + u" )" +  //
                   u" OR ( Year=" + end.year + u" AND Month=" + end.month + u" AND Day <=" + end.day +
                   u" AND Week <= " + end.week + u" ) )";
    if (end.yearNumber - start.yearNumber < 1) {
        text += u" AND Year BETWEEN "_s + QString::number(start.yearNumber + 1) + u" AND " +
                QString::number(end.yearNumber - 1);
    }
    return text;
}

/// Empty for ranges of about a year or more, which contain every month.
QString EveryYearCondition(const End& start, const End& end) {
    const int years = end.yearNumber - start.yearNumber;
    const bool isWithinAYear = years != 1 || start.monthNumber >= end.monthNumber;
    const bool isNotTheSameMonthAYearOn = years != 1 || start.monthNumber != end.monthNumber;
    if (years >= 2 || !isWithinAYear || !(start.dayNumber > end.dayNumber + 1 || isNotTheSameMonthAYearOn)) {
        return QString();
    }
    return u" AND ( ( Month > "_s + start.month + u" AND Month < " + end.month + u" )" +  //
           u" OR ( ( Month=" + start.month + u" AND ( Day=0 OR Day >= " + start.day +
           u" )  AND ( Week=0 OR Week >= " + start.week + u" )" +  //
           u" AND ( Month=" + end.month + u" AND Day <= " + end.day + u" AND Week <= " + end.week +
           u" ) ) ) )";
}

/// Empty for ranges of about a month or more, judged by month and day without the year.
QString EveryMonthCondition(const End& start, const End& end) {
    const int months = end.monthNumber - start.monthNumber;
    if (months >= 2 || !(start.dayNumber > end.dayNumber + 1 || months != 1)) {
        return QString();
    }
    return u" AND ( ( Day=0 OR Day >= "_s + start.day + u" ) AND ( Week=0 OR Week >= " + start.week +
           u" ) )" +  //
           u" AND ( Day <= " + end.day + u" AND Week <= " + end.week + u" )";
}

}  // namespace

std::array<QString, 3> SearchTexts(const SearchConditions& conditions) {
    const std::array isWanted{conditions.oneDay, conditions.everyYear, conditions.everyMonth};
    std::array texts{u"SELECT * FROM Kinenbi WHERE Year <> 0"_s,
                     u"SELECT * FROM Kinenbi WHERE Year = 0 AND Month <> 0"_s,
                     u"SELECT * FROM Kinenbi WHERE Month = 0"_s};
    std::array<QString, 3> dateConditions;
    if (conditions.dates) {
        const End start(conditions.dates->start);
        const End end(conditions.dates->end);
        dateConditions = {OneDayCondition(start, end),
                          conditions.acrossMonths
                              ? YearlyCondition(conditions.dates->start, conditions.dates->end)
                              : EveryYearCondition(start, end),
                          EveryMonthCondition(start, end)};
    }
    for (std::size_t kind = 0; kind < texts.size(); ++kind) {
        if (conditions.name) {
            texts[kind] += u" AND Name=\""_s + *conditions.name + u'"';
        }
        texts[kind] += dateConditions[kind];
        if (!isWanted[kind]) {
            texts[kind] = u"SELECT * FROM Kinenbi WHERE Year = 5"_s;
        }
    }
    return texts;
}

AnniversarySearch::AnniversarySearch(store::DayDatabase& database, const SearchConditions& conditions)
    : m_database(database), m_texts(SearchTexts(conditions)) {
    Begin();
}

void AnniversarySearch::Begin() {
    m_current = 0;
    m_searches.clear();
    for (const QString& text : m_texts) {
        m_searches.emplace_back(text);
    }
    m_searches.emplace_back(u"SELECT * FROM Kinenbi WHERE Year <> 5"_s);
    m_searches.back().CountOnly();
}

bool AnniversarySearch::Step() {
    if (IsGivenUp()) {
        return true;
    }
    const store::ChangeMark mark = m_database.Mark();
    if (std::exchange(m_mark, mark) != mark) {
        Begin();  // all four results must come from the same state of the database
    }
    while (m_current < m_searches.size() && m_searches[m_current].Step(m_database)) {
        ++m_current;
    }
    return m_current == m_searches.size();
}

double AnniversarySearch::Part() const {
    double done = 0;
    for (const store::RowSearch& search : m_searches) {
        done += search.Part();
    }
    return done / static_cast<double>(m_searches.size());
}

SearchFinds AnniversarySearch::TakeFinds() {
    const QList<days::ListedPart> parts{{m_searches[0].Take(), days::RowForm::OneDay},
                                        {m_searches[1].Take(), days::RowForm::EveryYear},
                                        {m_searches[2].Take(), days::RowForm::EveryMonth}};
    return {days::ListedRows(m_database, parts), m_searches[3].Count()};
}

}  // namespace tickwell::book

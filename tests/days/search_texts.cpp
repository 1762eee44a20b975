// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/search_texts.h"

#include "days/day_rule.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

/// One end of the range, as the numbers that the queries use.
struct End {
    explicit End(QDate date)
        : year(date.year()), month(date.month()), day(date.day()), week(WeekCode(date)) {}

    int year;
    int month;
    int day;
    int week;
};

QString Text(const char* pattern, std::initializer_list<int> numbers) {
    QString text = QString::fromLatin1(pattern);
    for (const int number : numbers) {
        text = text.arg(number);
    }
    return text;
}

const QString kNothing = u"SELECT * FROM Kinenbi WHERE Year = 5"_s;

bool IsYearFive(const Anniversary& row) {
    return row.year == 5;
}

QString OneDayText(const End& s, const End& e) {
    QString text =
        Text(" AND ( ( Year=%1 AND Month=%2 AND ( Day=0 OR Day >=%3 ) AND ( Week=0 OR Week >= %4 ) )",
             {s.year, s.month, s.day, s.week}) +
        Text(" OR ( Year=%1 AND Month > %2 ) )", {s.year, s.month}) +
        Text(" AND ( ( Year=%1 AND Month < %2 )", {e.year, e.month}) +
        Text(" OR ( Year=%1 AND Month=%2 AND Day <=%3 AND Week <= %4 ) )", {e.year, e.month, e.day, e.week});
    if (e.year - s.year < 1) {
        text += Text(" AND Year BETWEEN %1 AND %2", {s.year + 1, e.year - 1});
    }
    return text;
}

/// Never true, as in the query: the year would have to equal both ends of the range, or, if both ends are in
/// one year, to be in an empty range of years.
bool IsOneDayMeant(const Anniversary& row, const End& s, const End& e) {
    if (e.year - s.year < 1) {
        return row.year >= s.year + 1 && row.year <= e.year - 1;  // empty, because both ends are in one year
    }
    return row.year == s.year && row.year == e.year;
}

bool FiltersEveryYear(const End& s, const End& e) {
    const int years = e.year - s.year;
    const bool a = years != 1 || s.month >= e.month;
    const bool b = years != 1 || s.month != e.month;
    return years < 2 && a && (s.day > e.day + 1 || b);
}

QString EveryYearText(const End& s, const End& e) {
    return Text(" AND ( ( Month > %1 AND Month < %2 )", {s.month, e.month}) +
           Text(" OR ( ( Month=%1 AND ( Day=0 OR Day >= %2 )  AND ( Week=0 OR Week >= %3 )",
                {s.month, s.day, s.week}) +
           Text(" AND ( Month=%1 AND Day <= %2 AND Week <= %3 ) ) ) )", {e.month, e.day, e.week});
}

bool IsFromTo(const Anniversary& row, const End& s, const End& e) {
    const bool hasBegun = (row.day == 0 || row.day >= s.day) && (row.week == 0 || row.week >= s.week);
    return hasBegun && row.day <= e.day && row.week <= e.week;
}

bool IsEveryYearMeant(const Anniversary& row, const End& s, const End& e) {
    if (row.month > s.month && row.month < e.month) {
        return true;
    }
    return row.month == s.month && s.month == e.month && IsFromTo(row, s, e);
}

bool FiltersEveryMonth(const End& s, const End& e) {
    const int months = e.month - s.month;
    return months < 2 && (s.day > e.day + 1 || months != 1);
}

QString EveryMonthText(const End& s, const End& e) {
    return Text(" AND ( ( Day=0 OR Day >= %1 ) AND ( Week=0 OR Week >= %2 ) )", {s.day, s.week}) +
           Text(" AND ( Day <= %1 AND Week <= %2 )", {e.day, e.week});
}

}  // namespace

std::array<SearchQuery, 3> SearchQueries(const Search& search) {
    const End s(search.start);
    const End e(search.end);
    const QString name = search.hasName ? u" AND Name=\""_s + search.name + u'"' : QString();
    const auto isNamed = [search](const Anniversary& row) {
        return !search.hasName || row.name == search.name;
    };
    const bool byYear = search.hasDates && FiltersEveryYear(s, e);
    const bool byMonth = search.hasDates && FiltersEveryMonth(s, e);
    std::array queries{
        SearchQuery{u"SELECT * FROM Kinenbi WHERE Year <> 0"_s + name +
                        (search.hasDates ? OneDayText(s, e) : QString()),
                    [=](const Anniversary& row) {
                        return row.year != 0 && isNamed(row) &&
                               (!search.hasDates || IsOneDayMeant(row, s, e));
                    }},
        SearchQuery{u"SELECT * FROM Kinenbi WHERE Year = 0 AND Month <> 0"_s + name +
                        (byYear ? EveryYearText(s, e) : QString()),
                    [=](const Anniversary& row) {
                        return row.year == 0 && row.month != 0 && isNamed(row) &&
                               (!byYear || IsEveryYearMeant(row, s, e));
                    }},
        SearchQuery{
            u"SELECT * FROM Kinenbi WHERE Month = 0"_s + name + (byMonth ? EveryMonthText(s, e) : QString()),
            [=](const Anniversary& row) {
                return row.month == 0 && isNamed(row) && (!byMonth || IsFromTo(row, s, e));
            }},
    };
    const std::array wanted{search.hasOneDay, search.hasEveryYear, search.hasEveryMonth};
    for (std::size_t i = 0; i < queries.size(); ++i) {
        if (!wanted[i]) {
            queries[i] = {kNothing, IsYearFive};
        }
    }
    return queries;
}

}  // namespace tickwell::days

// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/holiday_law.h"

#include <algorithm>
#include <array>
#include <map>

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

enum class Reckoning { Day, Monday, SpringEquinox, AutumnEquinox };

/// A rule of the law: the name, the years for which it holds, and the day.
struct LawRow {
    QStringView name;
    int firstYear = 0;
    int lastYear = 0;
    int month = 0;
    Reckoning reckoning = Reckoning::Day;
    int number = 0;  // the day of the month, or which Monday
    HolidayKind kind = HolidayKind::Holiday;
};

constexpr int kOn = kLastLawYear;  // still in force

// In 2020 and 2021 three days were moved for the Olympic Games. The acts for the two ceremonies of 2019 make
// their days holidays, so that a single day between them and another holiday is off too.
constexpr std::array kLaw{
    LawRow{u"元日", 1949, kOn, 1, Reckoning::Day, 1},
    LawRow{u"成人の日", 1949, 1999, 1, Reckoning::Day, 15},
    LawRow{u"成人の日", 2000, kOn, 1, Reckoning::Monday, 2},
    LawRow{u"建国記念の日", 1967, kOn, 2, Reckoning::Day, 11},
    LawRow{u"天皇誕生日", 1949, 1988, 4, Reckoning::Day, 29},
    LawRow{u"天皇誕生日", 1989, 2018, 12, Reckoning::Day, 23},
    LawRow{u"天皇誕生日", 2020, kOn, 2, Reckoning::Day, 23},
    LawRow{u"春分の日", 1949, kOn, 3, Reckoning::SpringEquinox, 0},
    LawRow{u"みどりの日", 1989, 2006, 4, Reckoning::Day, 29},
    LawRow{u"みどりの日", 2007, kOn, 5, Reckoning::Day, 4},
    LawRow{u"昭和の日", 2007, kOn, 4, Reckoning::Day, 29},
    LawRow{u"天皇の即位の日", 2019, 2019, 5, Reckoning::Day, 1, HolidayKind::OneDay},
    LawRow{u"憲法記念日", 1949, kOn, 5, Reckoning::Day, 3},
    LawRow{u"こどもの日", 1949, kOn, 5, Reckoning::Day, 5},
    LawRow{u"海の日", 1996, 2002, 7, Reckoning::Day, 20},
    LawRow{u"海の日", 2003, 2019, 7, Reckoning::Monday, 3},
    LawRow{u"海の日", 2020, 2020, 7, Reckoning::Day, 23},
    LawRow{u"海の日", 2021, 2021, 7, Reckoning::Day, 22},
    LawRow{u"海の日", 2022, kOn, 7, Reckoning::Monday, 3},
    LawRow{u"山の日", 2016, 2019, 8, Reckoning::Day, 11},
    LawRow{u"山の日", 2020, 2020, 8, Reckoning::Day, 10},
    LawRow{u"山の日", 2021, 2021, 8, Reckoning::Day, 8},
    LawRow{u"山の日", 2022, kOn, 8, Reckoning::Day, 11},
    LawRow{u"敬老の日", 1966, 2002, 9, Reckoning::Day, 15},
    LawRow{u"敬老の日", 2003, kOn, 9, Reckoning::Monday, 3},
    LawRow{u"秋分の日", 1948, kOn, 9, Reckoning::AutumnEquinox, 0},
    LawRow{u"体育の日", 1966, 1999, 10, Reckoning::Day, 10},
    LawRow{u"体育の日", 2000, 2019, 10, Reckoning::Monday, 2},
    LawRow{u"スポーツの日", 2020, 2020, 7, Reckoning::Day, 24},
    LawRow{u"スポーツの日", 2021, 2021, 7, Reckoning::Day, 23},
    LawRow{u"スポーツの日", 2022, kOn, 10, Reckoning::Monday, 2},
    LawRow{u"即位礼正殿の儀の行われる日", 2019, 2019, 10, Reckoning::Day, 22, HolidayKind::OneDay},
    LawRow{u"文化の日", 1948, kOn, 11, Reckoning::Day, 3},
    LawRow{u"勤労感謝の日", 1948, kOn, 11, Reckoning::Day, 23},
};

// The earlier acts for single days did not make them holidays, so no day between one of them and a holiday is
// off.
constexpr std::array kOneDayActs{
    LawRow{u"結婚の儀", 1959, 1959, 4, Reckoning::Day, 10, HolidayKind::OneDay},
    LawRow{u"大喪の礼", 1989, 1989, 2, Reckoning::Day, 24, HolidayKind::OneDay},
    LawRow{u"即位礼正殿の儀", 1990, 1990, 11, Reckoning::Day, 12, HolidayKind::OneDay},
    LawRow{u"結婚の儀", 1993, 1993, 6, Reckoning::Day, 9, HolidayKind::OneDay},
};

const QDate kFirstSubstitute(1973, 4, 12);
const QDate kFirstBetween(1985, 12, 27);
const QDate kSubstituteBeyondMonday(2007, 1, 1);

/// The day of the month of the equinox, in Japan's time zone, by the almanac's formula.
int EquinoxDay(int year, bool isSpring) {
    constexpr qint64 kMillion = 1'000'000;
    constexpr qint64 kPerYear = 242'194;  // millionths of a day by which a year exceeds 365 days
    qint64 base = isSpring ? 20'843'100 : 23'248'800;
    if (year < 1980) {
        base = isSpring ? 20'835'700 : 23'258'800;
    } else if (year == 2100) {
        base = isSpring ? 21'851'000 : 24'248'800;
    }
    const int leapDays = year < 1980 ? (year - 1983) / 4 : (year - 1980) / 4;
    return static_cast<int>((base + kPerYear * (year - 1980)) / kMillion) - leapDays;
}

QDate DateOf(const LawRow& row, int year) {
    switch (row.reckoning) {
        case Reckoning::Day:
            return {year, row.month, row.number};
        case Reckoning::Monday: {
            const QDate first(year, row.month, 1);
            return first.addDays((8 - first.dayOfWeek()) % 7 + 7 * (row.number - 1));
        }
        case Reckoning::SpringEquinox:
            return {year, row.month, EquinoxDay(year, true)};
        case Reckoning::AutumnEquinox:
            return {year, row.month, EquinoxDay(year, false)};
    }
    Q_UNREACHABLE();
}

using Days = std::map<QDate, Holiday>;

template <typename Rows>
void Put(Days& days, const Rows& rows, int year) {
    for (const LawRow& row : rows) {
        if (row.firstYear <= year && year <= row.lastYear) {
            const QDate date = DateOf(row, year);
            days.insert({date, {date, row.name.toString(), row.kind}});
        }
    }
}

bool IsSunday(QDate date) {
    return date.dayOfWeek() == Qt::Sunday;
}

Days SubstitutesOf(const Days& holidays) {
    Days substitutes;
    for (const auto& [date, holiday] : holidays) {
        if (!IsSunday(date) || date < kFirstSubstitute) {
            continue;
        }
        QDate next = date.addDays(1);
        while (date >= kSubstituteBeyondMonday && holidays.contains(next)) {
            next = next.addDays(1);
        }
        if (!holidays.contains(next)) {
            substitutes.insert({next, {next, u"振替休日"_s, HolidayKind::Substitute}});
        }
    }
    return substitutes;
}

Days DaysBetween(const Days& holidays) {
    Days between;
    for (const auto& [date, holiday] : holidays) {
        const QDate middle = date.addDays(1);
        const bool isBetween = holidays.contains(middle.addDays(1)) && !holidays.contains(middle);
        const bool wasExcepted = middle < kSubstituteBeyondMonday && IsSunday(middle);
        if (isBetween && middle >= kFirstBetween && !wasExcepted) {
            between.insert({middle, {middle, u"国民の休日"_s, HolidayKind::Between}});
        }
    }
    return between;
}

}  // namespace

QList<Holiday> HolidaysByLaw(int year) {
    if (year < kFirstLawYear || year > kLastLawYear) {
        return {};
    }
    Days days;
    Put(days, kLaw, year);
    Days substitutes = SubstitutesOf(days);
    Days between = DaysBetween(days);
    days.merge(substitutes);  // a substitute holiday takes precedence over a day between
    days.merge(between);
    Put(days, kOneDayActs, year);
    QList<Holiday> result;
    for (const auto& [date, holiday] : days) {
        result.append(holiday);
    }
    return result;
}

}  // namespace tickwell

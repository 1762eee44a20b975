// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell {

/// Kanji numeral of `n`, meant for 0 to 9999. Each place is read off the decimal text: ten thousands and
/// above are dropped, and so is a minus sign (12345 is "三百四十五", -5 is "五").
QString KanjiNumber(qint32 n);

/// Time in the twelve branches, four quarters of thirty minutes each: "子の三刻". `hour` 0..23, `minute`
/// 0..59.
QString BranchHour(int hour, int minute);

/// "寅年" for 1998: the animal of a western year.
QString YearAnimal(int year);

/// Names of month 1..12 and of weekday 1 (Sunday)..7; empty for any other index.
QString TraditionalMonth(int month);
QString EnglishMonth(int month);
QString EnglishWeekday(int weekday);

/// "十五日": day of month 1..31 in kanji.
QString KanjiDay(int day);

/// One-letter weekday of the difference a - b, where 0 is "日"; empty outside -9..15. A weekday 1 (Sunday)..7
/// is passed as (weekday, 1).
QString WeekdayLetter(qint32 a, qint32 b);

/// Western year to the year of 平成, the only era the clock knows. 1988 and before give 0 and below,
/// unchecked.
constexpr int HeiseiYear(int year) {
    return year - 1988;
}

}  // namespace tickwell

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell {

/// Kanji numeral of `n`, meant for 0 to 9999. Outside that range only hundreds, tens and units are written,
/// without a sign (12345 is "三百四十五", -5 is "五").
QString KanjiNumber(qint32 n);

/// The time in the twelve earthly branches of two hours, each divided into four quarters of thirty minutes:
/// "子の三刻". `hour` 0..23, `minute` 0..59.
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

/// The year of 平成 for a western year: 0 for 1988, negative before. Not checked.
constexpr int HeiseiYear(int year) {
    return year - 1988;
}

}  // namespace tickwell

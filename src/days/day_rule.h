// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>
#include <array>

namespace tickwell::days {

inline constexpr int kDaysInWeek = 7;

/// "#10/3/1998#": month, day, year, in every locale. `date` is valid.
QString DateLiteral(QDate date);

/// 1 for "日" to 7 for "土"; 0 for anything else.
int WeekdayOfLetter(QChar letter);

/// "日曜日" for 1 to "土曜日" for 7.
QString WeekdayText(int weekday);

/// 10 * (week of the month for its weekday, 1 to 5) + weekday, 1 Sunday to 7 Saturday: the second Monday is
/// 22.
int WeekCode(QDate date);

/// The anniversaries of a day. One with both a day and a week falls on either; one with neither falls on no
/// day. `weekCode` is a parameter because the daily check swaps its two digits.
QString AnniversaryQuery(qint32 year, qint32 month, qint32 day, qint32 weekCode);

/// The national holidays of a day, or of a month.
QString HolidayQuery(qint32 month, qint32 day);
QString MonthHolidayQuery(qint32 month);

/// The marks that a user can give a date; each has its own table.
enum class DayMark { Holiday, Halfday, Usuallyday };
inline constexpr std::array kDayMarks{DayMark::Holiday, DayMark::Halfday, DayMark::Usuallyday};

QStringView TableOf(DayMark mark);

/// The dates with that mark from `first` to `last`, both included.
QString MarkedDatesQuery(DayMark mark, QDate first, QDate last);

}  // namespace tickwell::days

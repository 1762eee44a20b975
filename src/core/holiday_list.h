// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QDate>
#include <QMap>
#include <QString>
#include <variant>

namespace tickwell {

/// The Cabinet Office's list of days off (syukujitsu.csv), complete for each of its years.
struct HolidayList {
    QMap<QDate, QString> days;  ///< never empty; names as written in the list

    int FirstYear() const { return days.firstKey().year(); }
    int LastYear() const { return days.lastKey().year(); }
    bool Covers(int year) const { return year >= FirstYear() && year <= LastYear(); }
};

/// Why a list was refused.
struct HolidayListProblem {
    int line = 0;  ///< counted from 1
    QString reason;
};

/// Reads a list: one day per line, `2026/5/6,休日`, in any order, with or without a header; Shift_JIS, or
/// UTF-8 with or without a byte order mark; lines end with LF or CR LF. A list that may be damaged or
/// truncated is refused: characters that cannot be decoded, dates before the law came into force or after
/// 2150, a name that is empty or longer than 40 characters, a repeated date, a missing year, a year after
/// 1948 with fewer than eight days off, a last year without November 23. At most 1 MiB and 10 000 lines.
std::variant<HolidayList, HolidayListProblem> ReadHolidayList(QByteArrayView bytes);

}  // namespace tickwell

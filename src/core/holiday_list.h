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
    QMap<QDate, QString> days;  ///< never empty; names as they stand in the list

    int FirstYear() const { return days.firstKey().year(); }
    int LastYear() const { return days.lastKey().year(); }
    bool Covers(int year) const { return year >= FirstYear() && year <= LastYear(); }
};

/// Why a list was refused.
struct HolidayListProblem {
    int line = 0;  ///< counted from 1
    QString reason;
};

/// Reads a list: one day a line, `2026/5/6,休日`, in any order, with or without a header; Shift_JIS or UTF-8
/// with or without a byte order mark; line feeds or carriage returns with line feeds. A list that may have
/// been damaged or cut off is refused: unreadable characters, dates before the law or after 2150, a name that
/// is empty or longer than 40 characters, a date twice, a year that is missing or has fewer days off than the
/// law ever had, a last year without November 23. At most 1 MiB and 10 000 lines.
std::variant<HolidayList, HolidayListProblem> ReadHolidayList(QByteArrayView bytes);

}  // namespace tickwell

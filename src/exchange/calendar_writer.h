// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QSet>
#include <vector>

#include "days/anniversary.h"
#include "days/day_rule.h"

namespace tickwell::exchange {

/// Writes the events of an iCalendar file: all-day ones that take no time. Equal rows are one event.
class CalendarWriter {
public:
    /// `now`: when the file is written.
    explicit CalendarWriter(const QDateTime& now);

    /// Adds the events of an anniversary; false if it falls on no day.
    bool AddAnniversary(const days::Anniversary& row);

    /// Adds a national holiday or substitute.
    void AddDayOff(const QString& name, QDate date);

    void AddMark(days::DayMark mark, QDate date);

    /// The complete file. To be called once, at the end.
    QByteArray Take();

private:
    void AddDay(const days::Anniversary& row, const QByteArray& kind);
    void AddEvent(const QByteArray& uid, const QByteArray& days, const QString& name, const QByteArray& last);

    QByteArray m_stamp;
    QByteArray m_bytes;
    QSet<QByteArray> m_uids;
};

/// The identity of an event: the SHA-1, in hexadecimal digits, of the name in UTF-8 and of year, month, day
/// and week as decimal numbers, each preceded by a line feed.
QByteArray UidOf(const days::Anniversary& row);

/// 「休日」、「半日」、「平日」: how a file calls a mark.
QString MarkText(days::DayMark mark);

}  // namespace tickwell::exchange

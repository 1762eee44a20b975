// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <optional>
#include <vector>

#include "days/anniversary.h"
#include "exchange/recurrence.h"

namespace tickwell::exchange {

/// An event of an iCalendar file. Dates are those of the zone in which it takes place.
struct CalendarEvent {
    int line = 0;  ///< of its BEGIN in the file, counted from 1
    QString name;  ///< as it stands there
    QByteArray uid;
    QDate start;      ///< invalid if it has none
    qint64 days = 1;  ///< how many it takes
    std::vector<Recurrence> rules;
    QList<QDate> dates;     ///< RDATE
    QList<QDate> excluded;  ///< EXDATE
    QDate replaces;  ///< the occurrence of another event that this one replaces; invalid if it does not
    std::optional<days::Anniversary> row;  ///< the row that it was written for, without its name
    QList<QDate> occurrences;              ///< within the period that was asked for
    bool isNamed = false;
    bool isCancelled = false;
    bool isUnreadable = false;  ///< a date or rule of it cannot be read
    bool isDayOff = false;      ///< written by this program for a day off or a mark
    bool hasExclusionRule = false;
    bool isInUnknownZone = false;  ///< and has a moment in UTC, whose date there is unknown
    bool isEndless = false;        ///< `occurrences` are incomplete
};

/// Parses an "event" line of tickwell-ical (see its protocol.h) without its line feed; nullopt if it is not
/// one.
std::optional<CalendarEvent> EventFrom(const QByteArray& line);

}  // namespace tickwell::exchange

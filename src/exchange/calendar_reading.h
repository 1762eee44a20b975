// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <vector>

#include "exchange/calendar_event.h"
#include "exchange/entry.h"

namespace tickwell::exchange {

/// Makes entries of the output of tickwell-ical.
class CalendarReading {
public:
    /// `splits`: refused events become single days of the year from `today` on.
    CalendarReading(QDate today, bool splits) : m_today(today), m_splits(splits) {}

    /// Takes some bytes of its output. Throws RunTimeError if they are not what its protocol says.
    void Take(const QByteArray& bytes);

    /// How many bytes of the file it has read, as far as known.
    qint64 Position() const { return m_position; }

    /// To be called once the helper has ended with that code. Throws RunTimeError with the reason if it has
    /// refused the file or failed.
    void End(int exitCode) const;

    /// After End: makes the entries of the next events; true once all are made.
    bool Convert();

    /// Progress of Convert, 0 to 1.
    double Part() const;

    /// The entries, once all are made.
    Offer TakeOffer();

private:
    void TakeLine(const QByteArray& line);
    void AddEntries(const CalendarEvent& event, int number);
    QList<QDate> ReplacedOf(const CalendarEvent& event) const;

    QDate m_today;
    bool m_splits;
    QByteArray m_rest;  // of an incomplete line
    std::vector<CalendarEvent> m_events;
    std::size_t m_converted = 0;  // events of which entries were made
    Offer m_offer;
    QHash<QByteArray, QList<QDate>> m_replaced;  // by the UID of their events
    int m_others = 0;
    bool m_isComplete = false;
    qint64 m_position = 0;
    QString m_refusal;
};

}  // namespace tickwell::exchange

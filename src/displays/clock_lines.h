// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QTime>
#include <memory>
#include <optional>

#include "core/ports/clock.h"
#include "core/settings.h"
#include "core/text_line.h"
#include "store/day_database.h"

namespace tickwell::displays {

/// What both lines show while the clock is the function: the time below; above, the date and the names of
/// what falls on today, in turn.
class ClockLines {
public:
    /// All outlive this object.
    ClockLines(const AppSettings& settings, const Clock& clock, store::DayDatabase& dayDatabase,
               TextLines lines);

    /// The function was chosen: date and time come in with a wipe. The names' turn stays where it was.
    void Show();

    /// Dz_Timer1, first half: a new day, or a raised refresh flag, gives a new date text and new names. The
    /// upper line is left alone. If the database cannot be asked now, there are no names at first, and it is
    /// tried again every five seconds; the code that left the database closed has told the user. Throws
    /// SqlError; the day is then taken for looked up, so that the error does not come five times a second.
    void LookUp();

    /// Dz_Timer1, second half: the time, when its text changed.
    void TimeTick();

    /// Dz_Timer2: the date without a wipe where nothing falls on today, else the next in turn with one.
    void RotateTick();

    void RaiseRefresh() { m_refresh = true; }

    /// Milliseconds until the next tick of Dz_Timer1 that finds something new. To lines that nobody sees each
    /// minute is early enough.
    qint64 UntilDue(bool isSeen) const;

private:
    bool IsLookUpDue(const QString& date) const { return date != m_rememberedDate || m_refresh; }
    qint64 UntilTimeDue(QTime now, bool isSeen) const;
    qint64 UntilNextTry() const;
    void AskForNames(QDate today);

    const AppSettings& m_settings;
    const Clock& m_clock;
    store::DayDatabase& m_dayDatabase;
    TextLines m_lines;
    QString m_rememberedDate;  // empty at start: the first tick always looks up
    QTime m_rememberedTime;    // invalid at start
    QString m_dateLine;
    QStringList m_names;
    qsizetype m_turn = 0;  // 0 the date, i the name i
    bool m_refresh = false;
    bool m_areNamesDue = false;     // the database could not be asked yet
    std::optional<qint32> m_tried;  // tick of the last try; none: the next look-up tries at once
};

}  // namespace tickwell::displays

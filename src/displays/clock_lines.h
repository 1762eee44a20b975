// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QTime>
#include <functional>
#include <memory>
#include <optional>

#include "core/ports/clock.h"
#include "core/settings.h"
#include "core/text_line.h"
#include "days/announced_names.h"

namespace tickwell::displays {

/// What the clock works with; all outlive it.
struct ClockParts {
    const AppSettings& settings;
    const Clock& clock;
    days::AnnouncementParts announcements;
};

/// Both lines while the clock is shown. Lower line: the time. Upper line, in rotation: the date, the names of
/// today's anniversaries and holidays, and the time in another zone if one is set.
class ClockLines {
public:
    /// `onDateShown`: called after LookUp wiped in a date, so that the date stays as long as every other text
    /// of the rotation.
    ClockLines(
        const ClockParts& parts, TextLines lines, std::function<void()> onDateShown = [] {});

    /// Called when the function is chosen: wipes in date and time. The rotation of the names continues where
    /// it was.
    void Show();

    /// Dz_Timer1, first half: on a new day, or if the refresh flag is set, updates the date text and queries
    /// the names. Writes to the upper line only if dateTurnsAtMidnight is set, and only on a new day that
    /// Show has not shown yet. If the database is closed, there are no names at first, and the query is
    /// repeated every five seconds; the code that left it closed has already informed the user. Throws
    /// SqlError; the day then counts as looked up, so that the error is not reported five times a second.
    void LookUp();

    /// Dz_Timer1, second half: updates the time if the second has changed, and the text with the time in the
    /// other zone if it is shown.
    void TimeTick();

    /// Dz_Timer2: if there is nothing but the date, sets it without a wipe; otherwise wipes in the next text
    /// of the rotation.
    void RotateTick();

    void RaiseRefresh() { m_refresh = true; }

    /// Milliseconds until the next tick of Dz_Timer1 that changes something. While the lines are not visible,
    /// once a minute is enough.
    qint64 UntilDue(bool isSeen) const;

private:
    bool IsLookUpDue(const QString& date) const { return date != m_rememberedDate || m_refresh; }
    qint64 UntilTimeDue(QTime now, bool isSeen) const;
    qint64 UntilNextTry() const;
    void ShowIfNew(QDate today);
    void AskForNames(QDate today);
    QString ZoneLine() const;
    void UpdateZone();

    ClockParts m_parts;
    TextLines m_lines;
    std::function<void()> m_onDateShown;
    QDate m_seenDate;          // of the last Show or look-up, whichever was later; invalid at start
    QString m_rememberedDate;  // empty at start, so that the first tick always looks up
    QTime m_rememberedTime;    // invalid at start
    QString m_dateLine;
    QStringList m_names;
    qsizetype m_turn = 0;  // 0: the date; i from 1: the i-th name; after the names: the other zone
    QString m_zoneLine;    // as last shown
    bool m_refresh = false;
    bool m_areNamesDue = false;     // they could not be queried yet
    std::optional<qint32> m_tried;  // tick of the last attempt; nullopt: the next look-up queries at once
};

}  // namespace tickwell::displays

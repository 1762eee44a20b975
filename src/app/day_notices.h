// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <functional>
#include <optional>

#include "core/ports/clock.h"
#include "core/ports/desktop_notices.h"
#include "core/ports/settings_store.h"
#include "core/ports/time_jumps.h"
#include "core/sleeping_timer.h"
#include "days/announced_names.h"
#include "days/day_notices.h"

namespace tickwell::app {

/// What the notices of days work with; all outlive them.
struct DayNoticesParts {
    DesktopNotices& notices;
    const Clock& clock;
    TimerSource& timers;
    TimeJumps& jumps;  ///< nobody else listens to it
    Handlers& handlers;
    SettingsStore& store;
    days::AnnouncementParts announcements;
    std::function<void(QDate day)> openCalendar;
};

/// Tells the names of days by notices of the desktop, while the settings select that. What was told is stored
/// at once, in a key of its own. If nobody shows notices, or the day database is closed, it tries again every
/// minute until midnight. Runs no timer while the settings do not select it.
class DayNotices {
public:
    explicit DayNotices(DayNoticesParts parts);
    ~DayNotices();
    Q_DISABLE_COPY_MOVE(DayNotices)

    /// The settings may have changed.
    void Follow();

private:
    const NoticeSettings& Settings() const { return m_parts.announcements.further.notices; }
    void LookAgain();
    void Tick();
    void Look(const QDateTime& now);
    qint64 UntilDue() const;
    void Tell(const days::DueNotice& due);
    void Finish(const days::DayNotice& which, DesktopNotices::Outcome outcome);
    days::ToldNotices& Told();
    void Store();

    DayNoticesParts m_parts;
    SleepingTimer m_timer;
    std::optional<days::ToldNotices> m_told;  // nothing until it is read
    QList<days::DayNotice> m_awaited;         // sent, their outcomes are not known yet
    QList<qint32> m_shown;                    // the numbers of all notices that were sent
    QDate m_looked;                           // the last day whose notices are settled
};

}  // namespace tickwell::app

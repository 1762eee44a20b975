// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <functional>
#include <memory>

#include "core/backup_settings.h"
#include "core/handlers.h"
#include "core/ports/clock.h"
#include "core/ports/message_boxes.h"
#include "core/ports/time_jumps.h"
#include "core/ports/timer.h"

namespace tickwell::app {

/// What the daily backup works with; all outlive it.
struct DailyBackupParts {
    const Clock& clock;
    TimerSource& timers;
    TimeJumps& jumps;  ///< nobody else listens to it
    Handlers& handlers;
    MessageBoxes& boxes;
    const BackupSettings& settings;
    std::function<bool()> canBegin;  ///< false while the day database is being changed or replaced
    /// Takes the backup of a day, if one is due, and calls `done` later with the reason of a failure, or an
    /// empty text.
    std::function<void(QDate day, std::function<void(const QString& fault)> done)> take;
};

/// Decides when the backup of a day is taken, while the settings select that: two minutes after the first
/// start of a day, and, if the program keeps running, two minutes after midnight. After a time jump to
/// another day, or when the settings select it, two minutes later. If it fails three times, two minutes
/// apart, the user is told, and the next attempt is on the next day. One timer sleeps until then; none runs
/// while the settings do not select it.
class DailyBackup {
public:
    explicit DailyBackup(DailyBackupParts parts);
    ~DailyBackup();
    Q_DISABLE_COPY_MOVE(DailyBackup)

    /// The settings may have changed.
    void Follow();

private:
    struct Listener;

    void SleepFor(qint64 milliseconds);
    void SleepUntilNextDay();
    void LookAgain();
    void Tick();
    void Finish(QDate day, const QString& fault);

    DailyBackupParts m_parts;
    std::unique_ptr<Timer> m_timer;
    qint64 m_sleep = 0;  // ms, of the timer
    QDate m_settled;     // the last day whose backup was taken, was not due, or has failed
    bool m_isTaking = false;
    int m_failures = 0;                    // of this day
    std::shared_ptr<Listener> m_listener;  // destroyed with this object
};

}  // namespace tickwell::app

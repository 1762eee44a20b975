// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

#include "core/ports/clock.h"
#include "core/ports/desktop_notices.h"
#include "core/ports/time_jumps.h"
#include "core/settings.h"
#include "core/sleeping_timer.h"

namespace tickwell::app {

/// What the countdown's notice works with; all outlive it.
struct CountdownNoticeParts {
    DesktopNotices& notices;
    const Clock& clock;
    TimerSource& timers;
    TimeJumps& jumps;  ///< nobody else listens to it
    Handlers& handlers;
    const FurtherSettings& further;
    std::function<void()> confirm;                       ///< closes the notice window
    std::function<void(const QString& name)> showAgain;  ///< opens it
};

/// The desktop's notice beside the countdown's notice window, while the settings select it. Its actions close
/// the window, the second one for five minutes.
class CountdownNotice {
public:
    static constexpr qint64 kAgainAfter = 300'000;  ///< ms

    explicit CountdownNotice(CountdownNoticeParts parts);
    ~CountdownNotice();
    Q_DISABLE_COPY_MOVE(CountdownNotice)

    /// The window was opened for a run with this name, which may be empty.
    void WindowOpened(const QString& name);
    /// The window was closed: the notice disappears as well.
    void WindowClosed();

private:
    void Choose(const QString& key);
    void Tick();

    CountdownNoticeParts m_parts;
    SleepingTimer m_again;  // runs until the window is opened again
    qint64 m_againAt = 0;   // ms since boot
    QString m_name;         // of the run that has ended
    QString m_againName;    // of the one to be told again
    qint32 m_number = 0;    // of the notice; 0 if there is none
};

}  // namespace tickwell::app

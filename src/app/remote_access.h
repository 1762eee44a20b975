// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>

#include "days/announced_names.h"
#include "remote/command_calls.h"
#include "remote/ports/command_service.h"
#include "shell/main_window.h"
#include "timing/timing_tools.h"

namespace tickwell::app {

/// What other programs control and the service that publishes it; all outlive it.
struct RemoteAccessParts {
    remote::CommandService& service;
    RealTimerSource& timers;
    const Clock& clock;
    days::AnnouncementParts announcements;
    shell::Form1& mainWindow;
    timing::TimingTools& timing;
};

/// Carries out the commands of other programs while the settings allow them. A command does what the user
/// could do in the windows, but nothing of it is stored.
class RemoteAccess : private remote::CommandTarget {
public:
    /// Does nothing until Follow: connecting to the session bus would delay the first frame.
    explicit RemoteAccess(const RemoteAccessParts& parts);
    ~RemoteAccess() override;
    Q_DISABLE_COPY_MOVE(RemoteAccess)

    /// To be called when the settings may have changed: offers or withdraws the commands. Does nothing during
    /// the first second of the program, after which it is called internally.
    void Follow();

private:
    /// Cached names, and the state they were queried for.
    struct Names {
        QDate day;
        FurtherSettings further;
        store::ChangeMark mark;
        QStringList names;
    };

    void Show(qint32 function) override;
    qint32 RunStopwatch(remote::StopwatchAction action) override;
    quint32 StartTimer(qint32 milliseconds, const QString& name) override;
    QStringList Today() override;
    void ComeForward(bool withMenu) override;
    void RequireStopwatch(bool isRunning) const;

    RemoteAccessParts m_parts;
    remote::CommandCalls m_calls;
    std::unique_ptr<Timer> m_start;   // runs during the first second, if the commands were on at the start
    std::unique_ptr<Timer> m_forget;  // runs while there are cached names
    bool m_isOffered = false;
    std::optional<Names> m_names;
};

}  // namespace tickwell::app

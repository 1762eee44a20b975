// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/remote_access.h"

#include "core/one_line.h"
#include "remote/refusal.h"

namespace tickwell::app {

namespace {

// ms
constexpr int kStart = 1000;
constexpr int kForget = 10'000;  // the names also depend on the official list, whose changes are not counted

}  // namespace

RemoteAccess::RemoteAccess(const RemoteAccessParts& parts)
    : m_parts(parts),
      m_calls(*this, m_parts.timers),
      m_start(m_parts.timers.Create(kStart,
                                    [this] {
                                        m_start->Stop();
                                        Follow();
                                    })),
      m_forget(m_parts.timers.Create(kForget, [this] {
          m_forget->Stop();
          m_names.reset();
      })) {
    if (m_parts.announcements.further.remote.acceptsCommands) {
        m_start->Start();
    }
}

RemoteAccess::~RemoteAccess() {
    if (m_isOffered) {
        m_parts.service.Withdraw();
    }
}

void RemoteAccess::Follow() {
    const bool isWanted = m_parts.announcements.further.remote.acceptsCommands;
    if (m_start->IsRunning() || isWanted == m_isOffered) {
        return;
    }
    m_isOffered = isWanted;
    if (isWanted) {
        m_parts.service.Offer([this](const QString& method, const QVariantList& arguments) {
            return m_calls.Run(method, arguments);
        });
    } else {
        m_parts.service.Withdraw();
    }
}

void RemoteAccess::Show(qint32 function) {
    m_parts.mainWindow.ShowForNow(function);
}

void RemoteAccess::RequireStopwatch(bool isRunning) const {
    if (m_parts.timing.IsStopwatchRunning() != isRunning) {
        throw remote::RefusedCall(isRunning ? remote::Refusal::StopwatchIsStopped
                                            : remote::Refusal::StopwatchIsRunning);
    }
}

qint32 RemoteAccess::RunStopwatch(remote::StopwatchAction action) {
    timing::TimingTools& timing = m_parts.timing;
    switch (action) {
        case remote::StopwatchAction::Start:
            RequireStopwatch(false);
            // The stopwatch would switch the display by itself, but that choice would be stored.
            if (m_parts.mainWindow.GetFuncNumber() != kFunctionStopwatch) {
                m_parts.mainWindow.ShowForNow(kFunctionStopwatch);
            }
            timing.StartOrStopStopwatch();
            break;
        case remote::StopwatchAction::Stop:
            RequireStopwatch(true);
            timing.StartOrStopStopwatch();
            break;
        case remote::StopwatchAction::Lap:
            RequireStopwatch(true);
            timing.LapOrResetStopwatch();
            return timing.LapReading();
        case remote::StopwatchAction::Reset:
            RequireStopwatch(false);
            timing.LapOrResetStopwatch();
            break;
        case remote::StopwatchAction::Read:
            break;
    }
    return timing.StopwatchReading();
}

quint32 RemoteAccess::StartTimer(qint32 milliseconds, const QString& name) {
    if (m_parts.timing.IsCountdownRunning()) {
        throw remote::RefusedCall(remote::Refusal::TimerIsRunning);
    }
    m_parts.timing.StartCountdown(milliseconds, name);
    return 1;
}

/// With very many rows the query is slow, so it is repeated only if something may have changed.
QStringList RemoteAccess::Today() {
    const days::AnnouncementParts& announcements = m_parts.announcements;
    const QDate day = m_parts.clock.Now().date();
    const store::ChangeMark mark = announcements.dayDatabase.Mark();
    if (!m_names || m_names->day != day || m_names->further != announcements.further ||
        !(m_names->mark == mark)) {
        QStringList names = days::AnnouncedNames(announcements, day);
        for (QString& name : names) {
            name = OnOneLine(name);
        }
        m_names = Names{.day = day, .further = announcements.further, .mark = mark, .names = names};
        m_forget->Start();
    }
    return m_names->names;
}

void RemoteAccess::ComeForward(bool withMenu) {
    if (withMenu) {
        m_parts.mainWindow.ComeForwardWithMenu();
    } else {
        m_parts.mainWindow.ComeForward();
    }
}

}  // namespace tickwell::app

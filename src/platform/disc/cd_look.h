// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "platform/disc/cd_answer.h"
#include "platform/processes/child_process.h"

namespace tickwell::platform {

/// Determines the state of the drive through tickwell-cd.
class CdLook {
public:
    /// `helper`: the path of tickwell-cd. `reaper` outlives this object.
    CdLook(ChildReaper& reaper, QString helper) : m_helper(std::move(helper)), m_child(reaper) {}

    /// Starts a check of the drive; does nothing while one is running. An empty source means that there is no
    /// drive. If the helper crashes while it reads titles, the check is repeated without them.
    void Start(const QString& source, bool withTitles);
    bool IsUnderWay() const { return m_isUnderWay; }

    /// To be called every `milliseconds`; returns the result once the check has ended. If the helper crashes,
    /// writes invalid output or takes longer than a drive needs to spin up, the result is NotReady.
    std::optional<CdSeen> Tick(int milliseconds);

private:
    void StartHelper();
    CdSeen End(media::CdStatus status);

    QString m_helper;
    ChildProcess m_child;
    QString m_source;
    QByteArray m_answer;  // received so far
    int m_passed = 0;     // ms
    bool m_isUnderWay = false;
    bool m_isStarted = false;  // the helper is running
    bool m_withTitles = false;
};

}  // namespace tickwell::platform

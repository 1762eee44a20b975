// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "platform/cd_answer.h"
#include "platform/child_process.h"

namespace tickwell {

/// A look at the drive, by way of tickwell-cd.
class CdLook {
public:
    /// `helper`: the path of tickwell-cd. `reaper` outlives this object.
    CdLook(ChildReaper& reaper, QString helper) : m_helper(std::move(helper)), m_child(reaper) {}

    /// Begins; nothing where one is under way. An empty source is a drive that is not there.
    void Start(const QString& source);
    bool IsUnderWay() const { return m_isUnderWay; }

    /// To be called each `milliseconds`: what the look has shown, once it has ended. A helper that dies,
    /// talks nonsense or takes longer than a drive needs to spin up has seen a drive that is not ready.
    std::optional<CdSeen> Tick(int milliseconds);

private:
    CdSeen End(CdStatus status);

    QString m_helper;
    ChildProcess m_child;
    QByteArray m_answer;  // as far as it came
    int m_passed = 0;     // ms
    bool m_isUnderWay = false;
    bool m_isStarted = false;  // there is a helper
    bool m_hasSource = false;
};

}  // namespace tickwell

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/display.h"
#include "core/sleeping_timer.h"
#include "media/cd_lines.h"

namespace tickwell {

/// The audio CD that plays.
class CdPlayerDisplay : public Display {
public:
    /// `openWindow` opens the player's window. All outlive this object.
    CdPlayerDisplay(CdPlayer& player, Handlers& handlers, TimerSource& timers, const DisplayView& view,
                    std::function<void()> openWindow);

    const DisplayTraits& Traits() const override;
    void Show() override;
    void Hide() override { m_CDTimer2.Stop(); }
    void Tick() override { m_CDTimer2.TickNow(); }
    qint64 UntilDue(bool isSeen) const override;
    void OpenWindow() override { m_openWindow(); }

    const Timer& CDTimer2() const { return m_CDTimer2; }

private:
    CdLines m_lines;
    SleepingTimer m_CDTimer2;
    std::function<void()> m_openWindow;
};

}  // namespace tickwell

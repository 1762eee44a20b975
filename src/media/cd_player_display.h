// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/display.h"
#include "core/sleeping_timer.h"
#include "media/cd_lines.h"

namespace tickwell::media {

/// The display of the CD player.
class CdPlayerDisplay : public Display {
public:
    /// `openWindow` opens the player's window. All outlive this object.
    CdPlayerDisplay(CdPlayer& player, Handlers& handlers, TimerSource& timers, const DisplayView& view,
                    std::function<void()> openWindow);

    const DisplayTraits& Traits() const override;
    void Show() override;
    void Hide() override { m_timer.Stop(); }
    void Tick() override { m_timer.TickNow(); }
    qint64 UntilDue(bool isSeen) const override;
    void OpenWindow() override { m_openWindow(); }

    const Timer& CDTimer2() const { return m_timer; }

private:
    CdLines m_lines;
    SleepingTimer m_timer;
    std::function<void()> m_openWindow;
};

}  // namespace tickwell::media

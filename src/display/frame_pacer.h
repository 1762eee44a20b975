// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <vector>

#include "core/throttle.h"

namespace tickwell {

/// Lets widgets repaint at most 60 times a second, however often they change, and all in the same frame.
class FramePacer {
public:
    /// Both outlive the pacer.
    FramePacer(const Clock& clock, TimerSource& timers);

    /// Asks for a repaint of `widget`, now or with the next frame. It must outlive the pacer or Forget
    /// itself.
    void Request(QWidget& widget);
    void Forget(const QWidget& widget);

private:
    void Paint();

    std::vector<QWidget*> m_waiting;
    Throttle m_throttle;
};

}  // namespace tickwell

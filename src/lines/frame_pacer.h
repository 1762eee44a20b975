// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRegion>
#include <QWidget>
#include <vector>

#include "core/throttle.h"

namespace tickwell::lines {

/// Lets widgets repaint at most 60 times a second, however often they change, and all in the same frame.
/// Nothing is painted while the widgets are not visible; changes are painted when they become visible.
class FramePacer {
public:
    /// Both outlive the pacer.
    FramePacer(const Clock& clock, TimerSource& timers);

    /// Requests a repaint of `widget`, or of part of it, now or with the next frame. `widget` must outlive
    /// the pacer or be removed with Forget.
    void Request(QWidget& widget) { Request(widget, widget.rect()); }
    void Request(QWidget& widget, const QRect& part);
    void Forget(const QWidget& widget);

    /// Whether the widgets are visible; initially true.
    void SetSeen(bool isSeen);
    bool IsSeen() const { return m_isSeen; }

    /// Milliseconds from a painted change until the next one can be painted; a minute while the widgets are
    /// not visible.
    int UntilFrame() const;

private:
    struct Waiting {
        QWidget* widget;
        QRegion part;
    };

    void AskForFrame();
    void Paint();

    std::vector<Waiting> m_waiting;
    bool m_isSeen = true;
    Throttle m_throttle;
};

}  // namespace tickwell::lines

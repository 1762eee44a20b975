// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRegion>
#include <QWidget>
#include <vector>

#include "core/throttle.h"

namespace tickwell::lines {

/// Lets widgets repaint at most 60 times a second, however often they change, and all in the same frame.
/// There are no frames while nobody sees the widgets; what has changed meanwhile is painted when they come
/// into sight.
class FramePacer {
public:
    /// Both outlive the pacer.
    FramePacer(const Clock& clock, TimerSource& timers);

    /// Asks for a repaint of `widget`, or of this part of it, now or with the next frame. It must outlive the
    /// pacer or Forget itself.
    void Request(QWidget& widget) { Request(widget, widget.rect()); }
    void Request(QWidget& widget, const QRect& part);
    void Forget(const QWidget& widget);

    /// Whether the widgets are in sight; they are at first.
    void SetSeen(bool isSeen);
    bool IsSeen() const { return m_isSeen; }

    /// Milliseconds from a change that was just painted until another one can be; a minute while nobody sees
    /// it.
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

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "core/ports/timer.h"

namespace tickwell::timing {

/// Keeps the first keys from a notice that takes the keyboard focus: they were meant for the window in which
/// the user is typing.
class FirstKeys : public QObject {
    Q_OBJECT

public:
    static constexpr int kIgnoredFor = 2000;  ///< ms

    /// `isWanted` is asked at each key. `timers` outlives this object.
    FirstKeys(TimerSource& timers, std::function<bool()> isWanted);

    /// Watches a window or a control, which the caller owns.
    void Watch(QWidget& widget) { widget.installEventFilter(this); }

    /// To be called when the notice is shown, and when it was closed.
    void Begin();
    void End() { m_ignores->Stop(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<bool()> m_isWanted;
    std::unique_ptr<Timer> m_ignores;  // runs while keys are ignored
};

}  // namespace tickwell::timing

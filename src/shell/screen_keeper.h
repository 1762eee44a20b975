// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>
#include <memory>

#include "core/handlers.h"
#include "core/ports/timer.h"
#include "shell/screen_place.h"

namespace tickwell::shell {

/// The screens that are connected now.
QList<NamedScreen> ConnectedScreens();

/// Remembers which screen the main window is on, and decides when it should return to it or move to another
/// one.
class ScreenKeeper : public QObject {
    Q_OBJECT

public:
    /// How long window managers move windows after the screens have changed, in ms.
    static constexpr int kSettling = 1000;

    /// `changed` is called once after screens were connected, disconnected or resized. Handlers and timers
    /// outlive this object.
    ScreenKeeper(Handlers& handlers, TimerSource& timers, std::function<void()> changed);

    /// Sets the remembered position; an empty one clears it.
    void Set(const ScreenPlace& place) { m_place = place; }
    const ScreenPlace& Place() const { return m_place; }

    /// The window was moved. While the screens are changing it was not moved by the user, so nothing is
    /// remembered, nor if this object chose the position.
    void Moved(const QRect& window);

    /// Where a window at this position and of this size belongs. Remembers that if nothing is remembered.
    QPoint PositionFor(const QRect& window);

private:
    void ScreensChanged();
    void WatchScreens();

    ScreenPlace m_place;
    QPoint m_chosen;  // the last position of PositionFor
    std::unique_ptr<Timer> m_settling;
};

}  // namespace tickwell::shell

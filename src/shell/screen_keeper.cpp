// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/screen_keeper.h"

#include <QGuiApplication>
#include <QScreen>
#include <utility>

namespace tickwell::shell {

QList<NamedScreen> ConnectedScreens() {
    QList<NamedScreen> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        screens.append({screen->name(), screen->geometry()});
    }
    return screens;
}

ScreenKeeper::ScreenKeeper(Handlers& handlers, TimerSource& timers, std::function<void()> changed)
    : m_settling(handlers.MakeTimer(timers, kSettling, [this, changed = std::move(changed)] {
          m_settling->Stop();
          changed();
      })) {
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &ScreenKeeper::WatchScreens);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &ScreenKeeper::ScreensChanged);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &ScreenKeeper::ScreensChanged);
    WatchScreens();
}

void ScreenKeeper::WatchScreens() {
    for (const QScreen* screen : QGuiApplication::screens()) {
        connect(screen, &QScreen::geometryChanged, this, &ScreenKeeper::ScreensChanged, Qt::UniqueConnection);
    }
}

/// Several changes in a row count as one.
void ScreenKeeper::ScreensChanged() {
    m_settling->Stop();
    m_settling->Start();
}

void ScreenKeeper::Moved(const QRect& window) {
    if (m_settling->IsRunning() || window.topLeft() == m_chosen) {
        return;
    }
    const ScreenPlace place = PlaceOf(window, ConnectedScreens());
    if (!place.screen.isEmpty()) {
        m_place = place;
    }
}

QPoint ScreenKeeper::PositionFor(const QRect& window) {
    const QList<NamedScreen> screens = ConnectedScreens();
    m_chosen = PositionInside(window, m_place, screens);
    if (m_place.screen.isEmpty()) {
        m_place = PlaceOf(QRect(m_chosen, window.size()), screens);
    }
    return m_chosen;
}

}  // namespace tickwell::shell

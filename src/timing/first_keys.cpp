// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/first_keys.h"

#include <QKeyEvent>
#include <utility>

namespace tickwell::timing {

FirstKeys::FirstKeys(TimerSource& timers, std::function<bool()> isWanted)
    : m_isWanted(std::move(isWanted)), m_ignores(timers.Create(kIgnoredFor, [this] { m_ignores->Stop(); })) {}

void FirstKeys::Begin() {
    if (m_isWanted()) {
        m_ignores->Start();
    }
}

/// A key that is still held down after that time was not meant for the notice either.
bool FirstKeys::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease ||
                       event->type() == QEvent::ShortcutOverride;
    if (!isKey || !m_isWanted()) {
        return QObject::eventFilter(watched, event);
    }
    if (m_ignores->IsRunning() || static_cast<QKeyEvent*>(event)->isAutoRepeat()) {
        event->accept();  // otherwise a shortcut or the window around the button would get it
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace tickwell::timing

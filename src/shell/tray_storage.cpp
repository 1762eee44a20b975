// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/tray_storage.h"

#include <utility>

namespace tickwell::shell {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWatchTick = 2000;  // ms; a panel that restarts is back before the second check

}  // namespace

TrayStorage::TrayStorage(Tray& tray, QMenu& menu, Handlers& handlers, TimerSource& timers,
                         std::function<void(bool)> onStored)
    : m_tray(tray),
      m_menu(menu),
      m_onStored(std::move(onStored)),
      m_watch(handlers.MakeTimer(timers, kWatchTick, [this] { Watch_Timer(); })) {}

void TrayStorage::Store() {
    if (m_storing || m_stored || !m_tray.IsThere()) {
        return;
    }
    m_storing = true;
    m_tray.Show(
        u"Tickwell Ver.2"_s, m_menu, [this] { TakeBack(); }, [this](bool isShown) { IconShown(isShown); });
}

/// Hides the window only now, so that a desktop that does not answer cannot make it unreachable.
void TrayStorage::IconShown(bool isShown) {
    m_storing = false;
    if (!isShown) {
        return;
    }
    m_stored = true;
    m_missed = false;
    m_watch->Start();
    m_onStored(true);
}

void TrayStorage::TakeBack() {
    if (std::exchange(m_stored, false)) {
        m_onStored(false);
        Remove();
    } else if (m_storing) {
        Remove();
    }
}

void TrayStorage::Remove() {
    m_storing = false;
    m_watch->Stop();
    m_tray.Hide();
}

void TrayStorage::Watch_Timer() {
    if (m_tray.IsThere()) {
        m_missed = false;
    } else if (std::exchange(m_missed, true)) {
        TakeBack();
    }
}

}  // namespace tickwell::shell

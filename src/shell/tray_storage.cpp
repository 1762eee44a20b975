// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/tray_storage.h"

#include <utility>

namespace tickwell::shell {

using namespace Qt::StringLiterals;

namespace {

// ms. A panel that restarts is back before the second check after a change. A bus that hangs reports no
// change.
constexpr int kAfterChange = 2000;
constexpr int kWithoutChange = 15'000;

}  // namespace

TrayStorage::TrayStorage(Tray& tray, QMenu& menu, Handlers& handlers, TimerSource& timers,
                         std::function<void(bool)> onStored)
    : m_tray(tray),
      m_menu(menu),
      m_onStored(std::move(onStored)),
      m_watch(handlers.MakeTimer(timers, kWithoutChange, [this] { Watch_Timer(); })) {}

void TrayStorage::Store() {
    if (m_storing || m_stored || !m_tray.IsThere()) {
        return;
    }
    m_storing = true;
    if (m_hasIcon) {
        IconShown(true);
    } else {
        ShowIcon();
    }
}

void TrayStorage::ShowIcon() {
    if (std::exchange(m_asking, true)) {
        return;
    }
    m_tray.Show(
        u"Tickwell Ver.2"_s, m_menu, [this] { Click(); }, [this](bool isShown) { IconShown(isShown); });
}

/// The window is hidden only once the icon is shown, so that a desktop that does not respond cannot make it
/// unreachable.
void TrayStorage::IconShown(bool isShown) {
    m_asking = false;
    const bool stores = std::exchange(m_storing, false);
    SetHasIcon(isShown);
    if (!stores || !isShown) {
        return;
    }
    m_stored = true;
    m_missed = false;
    Watch(kWithoutChange);
    m_onStored(true);
}

void TrayStorage::SetHasIcon(bool hasIcon) {
    if (std::exchange(m_hasIcon, hasIcon) != hasIcon && m_use) {
        m_use->changed();
    }
}

void TrayStorage::Click() {
    if (m_use && !m_stored) {
        const auto clicked = m_use->clicked;  // a copy: the call may release the icon
        clicked();
    } else {
        TakeBack();
    }
}

void TrayStorage::TakeBack() {
    if (std::exchange(m_stored, false)) {
        m_onStored(false);
        RemoveUnused();
    } else if (std::exchange(m_storing, false)) {
        RemoveUnused();
    }
}

void TrayStorage::KeepIcon(const IconUse& use) {
    m_use = use;
    if (!m_watch->IsRunning()) {
        m_missed = false;
        Watch(kWithoutChange);
    }
    if (!m_hasIcon) {
        ShowIcon();
    }
}

void TrayStorage::ReleaseIcon() {
    m_use.reset();
    if (!m_stored && !m_storing) {
        Remove();
    }
}

void TrayStorage::RemoveUnused() {
    if (!m_use) {
        Remove();
    }
}

void TrayStorage::Remove() {
    m_use.reset();
    m_asking = false;
    m_storing = false;
    m_hasIcon = false;
    m_watch->Stop();
    m_tray.Hide();
}

void TrayStorage::Watch(int interval) {
    m_watch->SetInterval(interval);
    m_watch->Start();
}

void TrayStorage::AreaChanged() {
    if (m_watch->IsRunning()) {
        Watch(kAfterChange);
    }
}

void TrayStorage::Watch_Timer() {
    if (m_tray.IsThere()) {
        m_missed = false;
        Watch(kWithoutChange);
        if (m_use && !m_hasIcon) {
            ShowIcon();
        }
    } else if (std::exchange(m_missed, true)) {
        Watch(kWithoutChange);
        AreaGone();
    } else {
        Watch(kAfterChange);
    }
}

void TrayStorage::AreaGone() {
    TakeBack();
    if (m_use && m_hasIcon) {
        m_tray.Hide();
        SetHasIcon(false);
    }
}

}  // namespace tickwell::shell

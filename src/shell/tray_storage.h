// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "core/handlers.h"
#include "core/ports/timer.h"
#include "core/ports/tray.h"

namespace tickwell::shell {

/// Whether the main window is put away into the notification area. Nothing may lose the window: it goes only
/// where its icon is seen, and comes back by itself when the area itself is gone.
class TrayStorage {
public:
    /// `menu` of the icon and `onStored`, told with true after the window has to be hidden and with false
    /// when it has to be shown again. All outlive this object.
    TrayStorage(Tray& tray, QMenu& menu, Handlers& handlers, TimerSource& timers,
                std::function<void(bool)> onStored);

    bool CanStore() const { return m_tray.IsThere(); }
    bool IsStored() const { return m_stored; }

    /// Adds the icon, and hides the window once the icon is there; without a notification area nothing
    /// happens.
    void Store();

    /// Shows the window and removes the icon, or withdraws a Store that is under way. Else it does nothing.
    void TakeBack();

    /// Removes the icon alone, for the end of the program.
    void Remove();

private:
    void IconShown(bool isShown);
    void Watch_Timer();

    Tray& m_tray;
    QMenu& m_menu;
    std::function<void(bool)> m_onStored;
    std::unique_ptr<Timer> m_watch;
    bool m_storing = false;  // the icon is still to come
    bool m_stored = false;
    bool m_missed = false;  // the area was gone when it was last looked at
};

}  // namespace tickwell::shell

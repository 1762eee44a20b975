// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "core/handlers.h"
#include "core/ports/timer.h"
#include "core/ports/tray.h"

namespace tickwell::shell {

/// A use of the tray icon by a window that is not stored there.
struct IconUse {
    std::function<void()> changed;  ///< HasIcon has changed
    std::function<void()> clicked;  ///< the icon was clicked while the window was not stored
};

/// Stores the main window in the notification area. The window always stays reachable: it is hidden only once
/// its icon is shown, and it reappears if the notification area disappears.
class TrayStorage {
public:
    /// `menu`: of the icon. `onStored`: called with true when the window must be hidden, with false when it
    /// must be shown again. All outlive this object.
    TrayStorage(Tray& tray, QMenu& menu, Handlers& handlers, TimerSource& timers,
                std::function<void(bool)> onStored);

    bool CanStore() const { return m_tray.IsThere(); }
    bool IsStored() const { return m_stored; }

    /// Adds the icon, and hides the window once the icon is there; without a notification area nothing
    /// happens.
    void Store();

    /// Shows the window and removes the icon, or cancels a pending Store. Otherwise does nothing.
    void TakeBack();

    /// Shows the icon from now until ReleaseIcon, even if the window is not stored; if there is no
    /// notification area yet, as soon as there is one.
    void KeepIcon(const IconUse& use);
    /// Removes the icon unless the window is stored.
    void ReleaseIcon();
    bool KeepsIcon() const { return m_use.has_value(); }
    bool HasIcon() const { return m_hasIcon; }

    /// Must be called whenever the tray reports a change.
    void AreaChanged();

    /// Only removes the icon; for the end of the program.
    void Remove();

private:
    void ShowIcon();
    void IconShown(bool isShown);
    void SetHasIcon(bool hasIcon);
    void Click();
    void RemoveUnused();
    void Watch(int interval);
    void Watch_Timer();
    void AreaGone();

    Tray& m_tray;
    QMenu& m_menu;
    std::function<void(bool)> m_onStored;
    std::unique_ptr<Timer> m_watch;
    std::optional<IconUse> m_use;
    bool m_asking = false;   // waiting for the notification area to answer
    bool m_storing = false;  // waiting for the icon to be shown
    bool m_hasIcon = false;
    bool m_stored = false;
    bool m_missed = false;  // the last check found no notification area
};

}  // namespace tickwell::shell

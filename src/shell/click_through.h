// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <functional>

#include "core/handlers.h"
#include "core/settings.h"
#include "shell/item_menu.h"
#include "shell/tray_storage.h"

namespace tickwell::shell {

/// What letting clicks pass through needs; all outlive it.
struct ClickThroughParts {
    QWidget& window;
    FurtherSettings& further;
    TrayStorage& storage;
    QMenu& menu;  ///< the window's
    ItemMenu& trayMenu;
    Handlers& handlers;
    std::function<void(QWindow& window, bool passes)> passClicks;
    std::function<void()> openMenu;  ///< opens the window's menu
    std::function<void()> save;      ///< stores the settings
};

/// Lets clicks pass through the main window to the window below. The menu of the tray icon ends this, so it
/// is active only while the icon is shown, unless the user has agreed to do without.
class ClickThrough {
public:
    explicit ClickThrough(ClickThroughParts parts) : m_parts(std::move(parts)) {}

    /// Applies the settings.
    void Apply();

    /// To be called when the window was stored in the notification area or taken out: while clicks pass
    /// through, the icon is present without a stored window.
    void EnableTaking();

    /// To be called when the window was resized: a window manager that has seen a window with an empty input
    /// area may keep the size of the one that was restored.
    void Resized();

private:
    void Pass();
    void OfferEnd(bool offers);
    void End();

    ClickThroughParts m_parts;
    QAction* m_end = nullptr;  // in both menus while clicks pass through; owned by the window
    bool m_passes = false;
    bool m_hasPassed = false;  // clicks have passed through at some time since the start
};

}  // namespace tickwell::shell

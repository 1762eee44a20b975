// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <functional>

#include "core/handlers.h"
#include "core/settings.h"
#include "shell/item_menu.h"
#include "shell/tray_storage.h"

namespace tickwell::shell {

/// What clicks that go through the main window concern; all outlive it.
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

/// Lets clicks go through the main window to the window below, but only while the icon is shown, because its
/// menu ends that; or without one if the user has agreed to that.
class ClickThrough {
public:
    explicit ClickThrough(ClickThroughParts parts) : m_parts(std::move(parts)) {}

    /// Does what the settings say.
    void Apply();

    /// To be called when the window was stored in the notification area or taken out: while clicks go
    /// through, the icon is there without a stored window.
    void EnableTaking();

    /// To be called when the window was resized. A window manager that has seen a window without an area for
    /// clicks may keep the area that it got afterwards.
    void Resized();

private:
    void Pass();
    void OfferEnd(bool offers);
    void End();

    ClickThroughParts m_parts;
    QAction* m_end = nullptr;  // in both menus while clicks go through; owned by the window
    bool m_passes = false;
    bool m_hasPassed = false;  // at some time since the start
};

}  // namespace tickwell::shell

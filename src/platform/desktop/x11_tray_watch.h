// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <functional>

namespace tickwell::platform {

/// The system tray of an X11 screen, which is the owner of a selection (System Tray Protocol of
/// freedesktop.org). Without X11 there is none.
class X11TrayWatch : private QAbstractNativeEventFilter {
public:
    /// `changed`: called when a tray has come or gone since the last IsThere.
    explicit X11TrayWatch(std::function<void()> changed) : m_changed(std::move(changed)) {}
    ~X11TrayWatch() override;
    Q_DISABLE_COPY_MOVE(X11TrayWatch)

    /// Asks the server, and watches from then on; one or two round trips.
    bool IsThere();

private:
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    xcb_window_t AskForOwner(xcb_connection_t* server) const;

    std::function<void()> m_changed;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    xcb_atom_t m_manager = XCB_ATOM_NONE;  // the message of a new owner to the root window
    xcb_window_t m_owner = XCB_WINDOW_NONE;
};

}  // namespace tickwell::platform

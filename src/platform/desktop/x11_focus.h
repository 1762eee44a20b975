// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>

#include "core/ports/focus_return.h"

namespace tickwell::platform {

/// Tracks the focus on X11 by the active window that the window manager publishes. Qt already receives the
/// property changes of the root window, so tracking causes no further wake-ups. Does nothing without X11 or
/// without a window manager.
class X11Focus : public FocusReturn, private QAbstractNativeEventFilter {
public:
    X11Focus() = default;
    ~X11Focus() override;
    Q_DISABLE_COPY_MOVE(X11Focus)

    void Follow(quintptr window) override;
    void Unfollow() override;
    void GiveBack() override;

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    void Remember(xcb_connection_t* server);

    xcb_window_t m_window = XCB_NONE;  // the main window; XCB_NONE while nothing is tracked
    xcb_window_t m_before = XCB_NONE;
    xcb_atom_t m_activeWindow = XCB_NONE;
};

}  // namespace tickwell::platform

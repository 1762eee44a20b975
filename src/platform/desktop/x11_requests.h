// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <xcb/xcb.h>

#include <QList>
#include <array>
#include <cstdlib>
#include <memory>

namespace tickwell::platform {

/// Frees what xcb allocated with malloc.
struct XcbFree {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename Reply>
using XcbReply = std::unique_ptr<Reply, XcbFree>;

/// Qt's connection, owned by Qt; null without X11.
xcb_connection_t* X11Connection();

/// Whether a compositing manager runs, so that translucent windows can be seen through. False without X11.
bool IsComposited();

xcb_window_t RootOf(xcb_connection_t* server);

/// Requests a property of 32-bit items, at most 4096 of them. The answer is read by ItemsOf.
xcb_get_property_cookie_t RequestItems(xcb_connection_t* server, xcb_window_t window, xcb_atom_t property);

/// The items of a requested property; empty if it is missing, has another format, or its window is gone.
QList<quint32> ItemsOf(xcb_connection_t* server, xcb_get_property_cookie_t request);

/// Sends a client message about `window` to the root window, where the window manager listens. Does not flush
/// the connection.
void SendToManager(xcb_connection_t* server, xcb_window_t window, xcb_atom_t message,
                   const std::array<quint32, 5>& words);

}  // namespace tickwell::platform

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <xcb/xcb.h>

#include <QList>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace tickwell::platform {

/// The source of a request to the window manager (EWMH). Window managers obey some requests only if they come
/// from a pager, whose requests are those of the user.
inline constexpr quint32 kFromPager = 2;

/// The desktop number of a window that is on all desktops (EWMH).
inline constexpr quint32 kAllDesktops = 0xFFFFFFFF;

/// The bit in the type of an event that another client sent (X11 protocol, chapter 11).
inline constexpr quint8 kSentEvent = 0x80;

/// Frees what xcb allocated with malloc.
struct XcbFree {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename Reply>
using XcbReply = std::unique_ptr<Reply, XcbFree>;

/// Qt's connection, owned by Qt; null without X11.
xcb_connection_t* X11Connection();

/// The compositing manager of the screen, without which translucent windows cannot be seen through.
class CompositingManager {
public:
    /// Whether one runs; a round trip. False without X11.
    bool Runs();

private:
    xcb_atom_t m_selection = XCB_ATOM_NONE;  // its name is asked for only once
};

/// Whether a Wayland compositor decides the positions of this program's windows: the X server is XWayland,
/// and its window manager does not move windows on request (no EWMH _NET_MOVERESIZE_WINDOW). This applies to
/// wlroots-based compositors and weston; KWin and mutter place windows as on X11. False without X11.
bool IsPlacedByCompositor();

/// Interns all names in one round trip. An atom is 0 if the server did not answer.
template <size_t Count>
std::array<quint32, Count> InternAtoms(xcb_connection_t* server,
                                       const std::array<std::string_view, Count>& names) {
    std::array<xcb_intern_atom_cookie_t, Count> requests{};
    std::transform(names.begin(), names.end(), requests.begin(), [server](std::string_view name) {
        return xcb_intern_atom(server, 0, static_cast<quint16>(name.size()), name.data());
    });
    std::array<quint32, Count> atoms{};
    std::transform(
        requests.begin(), requests.end(), atoms.begin(), [server](xcb_intern_atom_cookie_t request) {
            const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, request, nullptr));
            return reply ? reply->atom : 0;
        });
    return atoms;
}

xcb_window_t RootOf(xcb_connection_t* server);

/// The atom of that name; 0 if the server does not answer.
xcb_atom_t AtomNamed(xcb_connection_t* server, std::string_view name);

/// Requests a property of 32-bit items, at most 4096 of them. The answer is read by ItemsOf.
xcb_get_property_cookie_t RequestItems(xcb_connection_t* server, xcb_window_t window, xcb_atom_t property);

/// The items of a requested property; empty if it is missing, has another format, or its window no longer
/// exists.
QList<quint32> ItemsOf(xcb_connection_t* server, xcb_get_property_cookie_t request);

/// Sends a client message about `window` to the root window, where the window manager listens. Does not flush
/// the connection.
void SendToManager(xcb_connection_t* server, xcb_window_t window, xcb_atom_t message,
                   const std::array<quint32, 5>& words);

}  // namespace tickwell::platform

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/x11_requests.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cstring>
#include <string_view>

namespace tickwell::platform {

namespace {

constexpr quint32 kMostItems = 4096;
constexpr std::string_view kCompositor = "_NET_WM_CM_S0";  // selection of the compositing manager (EWMH)
constexpr std::string_view kXWayland =
    "XWAYLAND";  // an extension since XWayland 23; older versions use it as the prefix of output names

bool IsXWayland(xcb_connection_t* server) {
    const XcbReply<xcb_query_extension_reply_t> extension(xcb_query_extension_reply(
        server, xcb_query_extension(server, kXWayland.size(), kXWayland.data()), nullptr));
    return (extension && extension->present != 0) ||
           QGuiApplication::primaryScreen()->name().startsWith(QLatin1StringView(kXWayland));
}

}  // namespace

xcb_connection_t* X11Connection() {
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

bool CompositingManager::Runs() {
    xcb_connection_t* server = X11Connection();
    if (server == nullptr) {
        return false;
    }
    if (m_selection == XCB_ATOM_NONE) {
        m_selection = AtomNamed(server, kCompositor);
    }
    const XcbReply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(server, xcb_get_selection_owner(server, m_selection), nullptr));
    return owner && owner->owner != XCB_NONE;
}

bool IsPlacedByCompositor() {
    xcb_connection_t* server = X11Connection();
    if (server == nullptr || !IsXWayland(server)) {
        return false;
    }
    const auto supported = RequestItems(server, RootOf(server), AtomNamed(server, "_NET_SUPPORTED"));
    return !ItemsOf(server, supported).contains(AtomNamed(server, "_NET_MOVERESIZE_WINDOW"));
}

xcb_atom_t AtomNamed(xcb_connection_t* server, std::string_view name) {
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        server, xcb_intern_atom(server, 0, static_cast<quint16>(name.size()), name.data()), nullptr));
    return reply ? reply->atom : 0;
}

xcb_window_t RootOf(xcb_connection_t* server) {
    return xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
}

xcb_get_property_cookie_t RequestItems(xcb_connection_t* server, xcb_window_t window, xcb_atom_t property) {
    return xcb_get_property(server, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, kMostItems);
}

QList<quint32> ItemsOf(xcb_connection_t* server, xcb_get_property_cookie_t request) {
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(server, request, nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    QList<quint32> items(reply->value_len);
    std::memcpy(items.data(), xcb_get_property_value(reply.get()), static_cast<size_t>(items.size()) * 4);
    return items;
}

void SendToManager(xcb_connection_t* server, xcb_window_t window, xcb_atom_t message,
                   const std::array<quint32, 5>& words) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = message;
    std::copy(words.begin(), words.end(), std::begin(event.data.data32));
    xcb_send_event(server, 0, RootOf(server),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
}

}  // namespace tickwell::platform

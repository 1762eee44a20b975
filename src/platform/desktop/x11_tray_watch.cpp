// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/x11_tray_watch.h"

#include <QGuiApplication>
#include <array>
#include <string_view>
#include <utility>

#include "platform/desktop/x11_requests.h"

namespace tickwell::platform {

X11TrayWatch::~X11TrayWatch() {
    if (qGuiApp != nullptr) {
        qGuiApp->removeNativeEventFilter(this);
    }
}

xcb_window_t X11TrayWatch::AskForOwner(xcb_connection_t* server) const {
    const XcbReply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(server, xcb_get_selection_owner(server, m_selection), nullptr));
    return owner ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
}

bool X11TrayWatch::IsThere() {
    xcb_connection_t* server = X11Connection();
    if (server == nullptr) {
        return false;
    }
    if (m_selection == XCB_ATOM_NONE) {
        constexpr std::array<std::string_view, 2> kNames{"_NET_SYSTEM_TRAY_S0", "MANAGER"};
        const auto atoms = InternAtoms(server, kNames);
        m_selection = atoms[0];
        m_manager = atoms[1];
        qGuiApp->installNativeEventFilter(this);
    }
    const xcb_window_t owner = AskForOwner(server);
    if (owner == m_owner || owner == XCB_WINDOW_NONE) {
        m_owner = owner;
        return owner != XCB_WINDOW_NONE;
    }
    // Qt selects the same events there. Asked again, because the owner may have gone before they were
    // selected.
    const quint32 events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    const auto request = xcb_change_window_attributes_checked(server, owner, XCB_CW_EVENT_MASK, &events);
    xcb_discard_reply(server, request.sequence);
    m_owner = AskForOwner(server) == owner ? owner : xcb_window_t{XCB_WINDOW_NONE};
    return m_owner != XCB_WINDOW_NONE;
}

bool X11TrayWatch::nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) {
    if (type != "xcb_generic_event_t") {
        return false;
    }
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    switch (event->response_type & ~kSentEvent) {
        case XCB_CLIENT_MESSAGE: {
            const auto* sent = reinterpret_cast<const xcb_client_message_event_t*>(event);
            if (sent->type == m_manager && sent->format == 32 && sent->data.data32[1] == m_selection) {
                m_changed();
            }
            break;
        }
        case XCB_DESTROY_NOTIFY:
            if (m_owner != XCB_WINDOW_NONE &&
                reinterpret_cast<const xcb_destroy_notify_event_t*>(event)->window == m_owner) {
                m_owner = XCB_WINDOW_NONE;
                m_changed();
            }
            break;
        default:
            break;
    }
    return false;
}

}  // namespace tickwell::platform

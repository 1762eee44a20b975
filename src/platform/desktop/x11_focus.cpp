// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/x11_focus.h"

#include <QCoreApplication>
#include <string_view>

#include "platform/desktop/x11_requests.h"

namespace tickwell::platform {

namespace {

constexpr std::string_view kActiveWindow = "_NET_ACTIVE_WINDOW";  // EWMH
constexpr quint8 kEventKind = 0x7F;  // masks the bit of events sent by other clients

}  // namespace

X11Focus::~X11Focus() {
    Unfollow();
}

void X11Focus::Follow(quintptr window) {
    xcb_connection_t* server = X11Connection();
    if (server == nullptr) {
        return;
    }
    if (m_window == XCB_NONE) {
        QCoreApplication::instance()->installNativeEventFilter(this);
        m_activeWindow = AtomNamed(server, kActiveWindow);
    }
    m_window = static_cast<xcb_window_t>(window);
    Remember(server);
}

void X11Focus::Unfollow() {
    if (m_window != XCB_NONE && QCoreApplication::instance() != nullptr) {
        QCoreApplication::instance()->removeNativeEventFilter(this);
    }
    m_window = XCB_NONE;
    m_before = XCB_NONE;
}

/// The window manager ignores the request if the window no longer exists.
void X11Focus::GiveBack() {
    xcb_connection_t* server = X11Connection();
    if (server != nullptr && m_before != XCB_NONE) {
        SendToManager(server, m_before, m_activeWindow, {kFromPager, XCB_CURRENT_TIME, m_window, 0, 0});
        xcb_flush(server);
    }
}

bool X11Focus::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/) {
    if (eventType != "xcb_generic_event_t") {
        return false;
    }
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & kEventKind) == XCB_PROPERTY_NOTIFY) {
        const auto* changed = static_cast<const xcb_property_notify_event_t*>(message);
        xcb_connection_t* server = X11Connection();
        if (changed->atom == m_activeWindow && server != nullptr && changed->window == RootOf(server)) {
            Remember(server);
        }
    }
    return false;
}

void X11Focus::Remember(xcb_connection_t* server) {
    const QList<quint32> active = ItemsOf(server, RequestItems(server, RootOf(server), m_activeWindow));
    if (!active.isEmpty() && active.constFirst() != XCB_NONE && active.constFirst() != m_window) {
        m_before = active.constFirst();
    }
}

}  // namespace tickwell::platform

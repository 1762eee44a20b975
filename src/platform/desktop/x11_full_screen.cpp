// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/x11_full_screen.h"

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/desktop/x11_requests.h"

namespace tickwell::platform {

namespace {

QList<quint32> OurWindows() {
    QList<quint32> ours;
    for (const QWindow* each : QGuiApplication::allWindows()) {
        if (each->handle() != nullptr) {
            ours.append(static_cast<quint32>(each->winId()));
        }
    }
    return ours;
}

struct AreaRequest {
    xcb_get_geometry_cookie_t size;
    xcb_translate_coordinates_cookie_t corner;
};

AreaRequest RequestArea(xcb_connection_t* server, quint32 window) {
    return {xcb_get_geometry(server, window),
            xcb_translate_coordinates(server, window, RootOf(server), 0, 0)};
}

/// The area of a window; empty if the window no longer exists.
QRect AreaOf(xcb_connection_t* server, const AreaRequest& request) {
    const XcbReply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(server, request.size, nullptr));
    const XcbReply<xcb_translate_coordinates_reply_t> corner(
        xcb_translate_coordinates_reply(server, request.corner, nullptr));
    return size && corner ? QRect(corner->dst_x, corner->dst_y, size->width, size->height) : QRect();
}

/// Selects the events that this program receives from a window, which may no longer exist.
void SetEvents(xcb_connection_t* server, quint32 window, quint32 events) {
    const auto request = xcb_change_window_attributes_checked(server, window, XCB_CW_EVENT_MASK, &events);
    xcb_discard_reply(server, request.sequence);
}

}  // namespace

X11FullScreen::~X11FullScreen() {
    Listen(nullptr);
}

xcb_connection_t* X11FullScreen::Server() {
    constexpr std::array<std::string_view, AtomCount> kNames{
        "_NET_SUPPORTING_WM_CHECK", "_NET_CLIENT_LIST_STACKING", "_NET_ACTIVE_WINDOW",
        "_NET_CURRENT_DESKTOP",     "_NET_SHOWING_DESKTOP",      "_NET_WM_STATE",
        "_NET_WM_STATE_FULLSCREEN", "_NET_WM_STATE_HIDDEN",      "_NET_WM_DESKTOP"};
    xcb_connection_t* server = X11Connection();
    if (server != nullptr && Atom(State) == 0) {
        m_atoms = InternAtoms(server, kNames);
    }
    return server;
}

void X11FullScreen::Listen(std::function<void()> changed) {
    const bool wasListening = m_changed != nullptr;
    m_changed = std::move(changed);
    xcb_connection_t* server = qGuiApp == nullptr ? nullptr : Server();
    if (server == nullptr) {
        return;
    }
    if (m_changed) {
        Select(server, {RootOf(server)}, XCB_EVENT_MASK_PROPERTY_CHANGE);
        qGuiApp->installNativeEventFilter(this);  // repeated calls have no effect
        Schedule();
    } else if (wasListening) {
        qGuiApp->removeNativeEventFilter(this);
        Unwatch(server);
    }
}

bool X11FullScreen::nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) {
    if (type == "xcb_generic_event_t" && IsOfInterest(*static_cast<xcb_generic_event_t*>(message))) {
        Schedule();
    }
    return false;
}

bool X11FullScreen::IsOfInterest(const xcb_generic_event_t& event) const {
    switch (event.response_type & ~kSentEvent) {
        case XCB_PROPERTY_NOTIFY: {
            const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
            constexpr std::array kProperties{CheckWindow,    Stacking, Active, CurrentDesktop,
                                             ShowingDesktop, State,    Desktop};
            return m_watched.contains(change.window) &&
                   std::any_of(kProperties.begin(), kProperties.end(),
                               [&](AtomName name) { return Atom(name) == change.atom; });
        }
        case XCB_CONFIGURE_NOTIFY:
            return m_watched.contains(reinterpret_cast<const xcb_configure_notify_event_t&>(event).window);
        case XCB_MAP_NOTIFY:
            return m_watched.contains(reinterpret_cast<const xcb_map_notify_event_t&>(event).window);
        case XCB_UNMAP_NOTIFY:
            return m_watched.contains(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window);
        case XCB_DESTROY_NOTIFY:
            return m_watched.contains(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
        default:
            return false;
    }
}

/// Window managers change several properties in a row; one check afterwards is enough.
void X11FullScreen::Schedule() {
    if (std::exchange(m_isDue, true)) {
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isDue = false;
            if (m_changed) {
                m_changed();
            }
        },
        Qt::QueuedConnection);
}

/// A killed window manager leaves its properties on the root window, but its check window no longer exists.
X11FullScreen::Manager X11FullScreen::ReadManager(xcb_connection_t* server) const {
    const auto request = [&](AtomName name) { return RequestItems(server, RootOf(server), Atom(name)); };
    const auto check = request(CheckWindow);
    const auto stacking = request(Stacking);
    const auto active = request(Active);
    const auto current = request(CurrentDesktop);
    const auto showing = request(ShowingDesktop);
    const QList<quint32> checked = ItemsOf(server, check);
    return {
        .isThere = !checked.isEmpty() &&
                   !ItemsOf(server, RequestItems(server, checked.constFirst(), Atom(CheckWindow))).isEmpty(),
        .showsDesktop = ItemsOf(server, showing).value(0) != 0,
        .active = ItemsOf(server, active).value(0),
        .desktop = ItemsOf(server, current),
        .stack = ItemsOf(server, stacking)};
}

bool X11FullScreen::IsCovered(quintptr window) {
    xcb_connection_t* server = Server();
    if (server == nullptr) {
        return false;
    }
    const Manager manager = ReadManager(server);
    if (m_changed) {
        WatchOnly(server, manager.stack);  // before their states are read, so that no change is missed
    }
    const QList<DesktopWindow> windows = ReadWindows(server, manager);
    QList<quint32> fullScreen;
    for (const DesktopWindow& each : windows) {
        if (each.isFullScreen && !each.isOurs) {
            fullScreen.append(each.id);
        }
    }
    if (fullScreen.isEmpty()) {
        return false;
    }
    if (m_changed) {  // it may move to another screen, or close without a window manager
        Select(server, fullScreen, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
    const QRect place = AreaOf(server, RequestArea(server, static_cast<quint32>(window)));
    return IsUnderFullScreen(windows, manager.active, place);
}

QList<DesktopWindow> X11FullScreen::ReadWindows(xcb_connection_t* server, const Manager& manager) const {
    struct Request {
        xcb_get_property_cookie_t states;
        xcb_get_property_cookie_t desktop;
        AreaRequest area;
        xcb_get_window_attributes_cookie_t attributes;
    };
    // All requests are sent before the first reply is read.
    QList<Request> requests;
    for (const quint32 window : manager.stack) {
        requests.append({RequestItems(server, window, Atom(State)),
                         RequestItems(server, window, Atom(Desktop)), RequestArea(server, window),
                         xcb_get_window_attributes(server, window)});
    }
    const QList<quint32> ours = OurWindows();
    QList<DesktopWindow> windows;
    for (qsizetype i = 0; i < requests.size(); ++i) {
        const QList<quint32> states = ItemsOf(server, requests[i].states);
        const QList<quint32> desktop = ItemsOf(server, requests[i].desktop);
        const QRect area = AreaOf(server, requests[i].area);
        const XcbReply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(server, requests[i].attributes, nullptr));
        const bool isHere = desktop.isEmpty() || manager.desktop.isEmpty() || desktop == manager.desktop ||
                            desktop.constFirst() == kAllDesktops;
        // A window manager may map windows later than it sets its properties, so the map state counts only
        // without one.
        const bool isShown = manager.isThere
                                 ? isHere && !manager.showsDesktop && !states.contains(Atom(Hidden))
                                 : attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
        windows.append({.id = manager.stack[i],
                        .area = area,
                        .isFullScreen = states.contains(Atom(FullScreen)),
                        .isShown = isShown,
                        .isOurs = ours.contains(manager.stack[i])});
    }
    return windows;
}

/// Watches exactly these windows and the root window; stops watching all others.
void X11FullScreen::WatchOnly(xcb_connection_t* server, const QList<quint32>& windows) {
    m_watched.removeIf([&](const std::pair<const quint32&, quint32&>& each) {
        return each.first != RootOf(server) && !windows.contains(each.first);
    });
    QList<quint32> others = windows;
    others.removeIf([ours = OurWindows()](quint32 each) { return ours.contains(each); });
    Select(server, others, XCB_EVENT_MASK_PROPERTY_CHANGE);
}

/// Selects events in addition to those that Qt has selected, if they are not selected already.
void X11FullScreen::Select(xcb_connection_t* server, const QList<quint32>& windows, quint32 events) {
    QList<std::pair<quint32, xcb_get_window_attributes_cookie_t>> requests;
    for (const quint32 window : windows) {
        if ((m_watched.value(window) & events) != events) {
            requests.append({window, xcb_get_window_attributes(server, window)});
        }
    }
    for (const auto& [window, request] : std::as_const(requests)) {
        const XcbReply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(server, request, nullptr));
        if (attributes) {
            m_watched[window] |= events;
            SetEvents(server, window, attributes->your_event_mask | events);
        }
    }
    xcb_flush(server);
}

/// Qt itself needs the root window's property events, so these stay selected.
void X11FullScreen::Unwatch(xcb_connection_t* server) {
    m_watched.remove(RootOf(server));
    for (const auto& [window, events] : std::exchange(m_watched, {}).asKeyValueRange()) {
        const XcbReply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(server, xcb_get_window_attributes(server, window), nullptr));
        if (attributes) {
            SetEvents(server, window, attributes->your_event_mask & ~events);
        }
    }
    xcb_flush(server);
}

}  // namespace tickwell::platform

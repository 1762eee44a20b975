// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/x11_stack.h"

#include <QGuiApplication>
#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/desktop/x11_input_hint.h"
#include "platform/desktop/x11_requests.h"

namespace tickwell::platform {

namespace {

constexpr quint32 kRemoveState = 0;
constexpr quint32 kAddState = 1;
constexpr quint32 kFromApplication = 1;
constexpr quint32 kNormalState = 1;  // in WM_STATE

bool IsSet(const QList<quint32>& flag) {
    return !flag.isEmpty() && flag.constFirst() != 0;
}

bool IsViewable(xcb_connection_t* server, xcb_window_t window) {
    const XcbReply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(server, xcb_get_window_attributes(server, window), nullptr));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

}  // namespace

X11Stack::~X11Stack() {
    if (qGuiApp != nullptr) {
        qGuiApp->removeNativeEventFilter(this);
    }
}

bool X11Stack::nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) {
    if (type != "xcb_generic_event_t" || m_settled == 0 ||
        (static_cast<xcb_generic_event_t*>(message)->response_type & ~kSentEvent) != XCB_PROPERTY_NOTIFY) {
        return false;
    }
    const quint32 property = static_cast<xcb_property_notify_event_t*>(message)->atom;
    constexpr std::array kQueried{CheckWindow, Stacking, State, Desktop};
    if (std::any_of(kQueried.begin(), kQueried.end(),
                    [&](AtomName name) { return Atom(name) == property; })) {
        m_settled = 0;
    }
    return false;
}

xcb_connection_t* X11Stack::Server() {
    constexpr std::array<std::string_view, AtomCount> kNames{"_NET_SUPPORTING_WM_CHECK",
                                                             "_NET_WM_STATE",
                                                             "_NET_WM_STATE_ABOVE",
                                                             "_NET_WM_STATE_STICKY",
                                                             "_NET_WM_STATE_SKIP_TASKBAR",
                                                             "_NET_WM_STATE_SKIP_PAGER",
                                                             "_NET_WM_STATE_DEMANDS_ATTENTION",
                                                             "_NET_WM_DESKTOP",
                                                             "_NET_CURRENT_DESKTOP",
                                                             "_NET_SHOWING_DESKTOP",
                                                             "_NET_CLIENT_LIST_STACKING",
                                                             "_NET_RESTACK_WINDOW",
                                                             "_NET_WM_USER_TIME",
                                                             "WM_STATE"};
    xcb_connection_t* server = X11Connection();
    if (server != nullptr && Atom(State) == 0) {
        m_atoms = InternAtoms(server, kNames);
        qGuiApp->installNativeEventFilter(this);
    }
    return server;
}

void X11Stack::Declare(quintptr window, bool inSwitcher) {
    m_isInSwitcher = inSwitcher;
    xcb_connection_t* server = Server();
    if (server == nullptr) {
        return;
    }
    const auto ours = static_cast<xcb_window_t>(window);
    const std::array<quint32, 4> states{Atom(Above), Atom(Sticky), Atom(SkipTaskbar), Atom(SkipPager)};
    const quint32 count = inSwitcher ? 2 : states.size();
    // Replaces what the window manager left there, such as "hidden"; Qt adds its own states when it maps the
    // window.
    xcb_change_property(server, XCB_PROP_MODE_REPLACE, ours, Atom(State), XCB_ATOM_ATOM, 32, count,
                        states.data());
    xcb_change_property(server, XCB_PROP_MODE_REPLACE, ours, Atom(Desktop), XCB_ATOM_CARDINAL, 32, 1,
                        &kAllDesktops);
    const quint32 never = 0;
    xcb_change_property(server, XCB_PROP_MODE_REPLACE, ours, Atom(UserTime), XCB_ATOM_CARDINAL, 32, 1,
                        &never);
    m_refused = {};
    m_settled = 0;
    // Compositors based on wlroots ignore that time, but do not focus a window that refuses the focus.
    if (IsPlacedByCompositor()) {
        DeclareAcceptsFocus(server, ours, false);
        m_refusesFocus = true;
    }
}

void X11Stack::AskForDeclared(quintptr window) {
    if (xcb_connection_t* server = Server()) {
        SendDeclared(server, static_cast<xcb_window_t>(window));
        xcb_flush(server);
    }
}

void X11Stack::SendDeclared(xcb_connection_t* server, quint32 window) const {
    SendToManager(
        server, window, Atom(State),
        {m_isInSwitcher ? kRemoveState : kAddState, Atom(SkipTaskbar), Atom(SkipPager), kFromApplication, 0});
    SendToManager(server, window, Atom(State), {kAddState, Atom(Above), Atom(Sticky), kFromApplication, 0});
    // Not every window manager supports the sticky state: openbox supports only the desktop number.
    SendToManager(server, window, Atom(Desktop), {kAllDesktops, kFromApplication, 0, 0, 0});
    // KWin marks every window that is mapped without focus as demanding attention.
    SendToManager(server, window, Atom(State),
                  {kRemoveState, Atom(DemandsAttention), 0, kFromApplication, 0});
}

bool X11Stack::HasDeclared(const Kept& kept) const {
    const bool isEverywhere =
        kept.states.contains(Atom(Sticky)) || kept.desktop == QList<quint32>{kAllDesktops};
    return isEverywhere && kept.states.contains(Atom(SkipTaskbar)) != m_isInSwitcher &&
           kept.states.contains(Atom(SkipPager)) != m_isInSwitcher &&
           !kept.states.contains(Atom(DemandsAttention));
}

/// Once the window manager has refused a request, repeats it only after the kept states have changed.
void X11Stack::AskAgain(xcb_connection_t* server, quint32 window, const Kept& kept) {
    if (HasDeclared(kept)) {
        m_refused = {};
    } else if (kept != m_refused) {
        m_refused = kept;
        SendDeclared(server, window);
    }
}

void X11Stack::PutAbove(quintptr window) {
    xcb_connection_t* server = Server();
    if (server == nullptr) {
        return;
    }
    const auto ours = static_cast<xcb_window_t>(window);
    if (m_settled == ours) {
        return;
    }
    // All requests are sent before the first reply is read: each separate wait would be one more wake-up.
    const auto checkWindow = RequestItems(server, RootOf(server), Atom(CheckWindow));
    const auto stacking = RequestItems(server, RootOf(server), Atom(Stacking));
    const auto states = RequestItems(server, ours, Atom(State));
    const auto desktop = RequestItems(server, ours, Atom(Desktop));
    const bool hasManager = !ItemsOf(server, checkWindow).isEmpty();
    const QList<quint32> stack = ItemsOf(server, stacking);
    const Kept kept{ItemsOf(server, states), ItemsOf(server, desktop)};
    if (!hasManager) {
        const quint32 above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(server, ours, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    } else {
        // Requests only what is not the case already.
        const bool isTop = !stack.isEmpty() && stack.constLast() == ours;
        if (!isTop || !kept.states.contains(Atom(Above))) {
            SendToManager(server, ours, Atom(State), {kAddState, Atom(Above), 0, kFromApplication, 0});
            SendToManager(server, ours, Atom(Restack), {kFromPager, 0, XCB_STACK_MODE_ABOVE, 0, 0});
        }
        AskAgain(server, ours, kept);
        m_settled = isTop && kept.states.contains(Atom(Above)) ? ours : 0;
    }
    if (std::exchange(m_refusesFocus, false)) {
        DeclareAcceptsFocus(server, ours, true);
    }
    xcb_flush(server);
}

void X11Stack::BringToUser(quintptr window) {
    xcb_connection_t* server = Server();
    if (server == nullptr) {
        return;
    }
    const auto ours = static_cast<xcb_window_t>(window);
    const auto showing = RequestItems(server, RootOf(server), Atom(ShowingDesktop));
    const auto current = RequestItems(server, RootOf(server), Atom(CurrentDesktop));
    const auto desktop = RequestItems(server, ours, Atom(Desktop));
    if (IsSet(ItemsOf(server, showing))) {
        SendToManager(server, RootOf(server), Atom(ShowingDesktop), {0, 0, 0, 0, 0});
    }
    const QList<quint32> here = ItemsOf(server, current);
    const QList<quint32> kept = ItemsOf(server, desktop);
    const bool isElsewhere = !kept.isEmpty() && kept.constFirst() != kAllDesktops && kept != here;
    if (isElsewhere && !here.isEmpty()) {
        // Requests the current desktop first and then all desktops, so that the window reaches the user even
        // if the window manager refuses the latter.
        SendToManager(server, ours, Atom(Desktop), {here.constFirst(), kFromPager, 0, 0, 0});
        SendDeclared(server, ours);
    }
    xcb_flush(server);
}

bool X11Stack::IsLost(quintptr window) {
    xcb_connection_t* server = Server();
    if (server == nullptr) {
        return false;
    }
    const auto ours = static_cast<xcb_window_t>(window);
    const auto checkWindow = RequestItems(server, RootOf(server), Atom(CheckWindow));
    const auto showing = RequestItems(server, RootOf(server), Atom(ShowingDesktop));
    const auto state = RequestItems(server, ours, Atom(WmState));
    const bool hasManager = !ItemsOf(server, checkWindow).isEmpty();
    const bool showsDesktop = IsSet(ItemsOf(server, showing));
    const QList<quint32> kept = ItemsOf(server, state);
    if (!hasManager) {
        return !IsViewable(server, ours);
    }
    return !showsDesktop && (kept.isEmpty() || kept.constFirst() != kNormalState);
}

}  // namespace tickwell::platform

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/x11_input_hint.h"

#include <QList>

#include "platform/desktop/x11_requests.h"

namespace tickwell::platform {

namespace {

constexpr qsizetype kHintItems = 9;    // of WM_HINTS: flags, input, and seven others
constexpr quint32 kHasInputHint = 1U;  // among the flags

void Store(xcb_connection_t* server, xcb_window_t window, quint32 property, quint32 type,
           const QList<quint32>& items) {
    xcb_change_property(server, XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<quint32>(items.size()), items.constData());
}

}  // namespace

void DeclareAcceptsFocus(xcb_connection_t* server, xcb_window_t window, bool accepts) {
    const quint32 takeFocus = AtomNamed(server, "WM_TAKE_FOCUS");
    const quint32 protocolsName = AtomNamed(server, "WM_PROTOCOLS");
    QList<quint32> hints = ItemsOf(server, RequestItems(server, window, XCB_ATOM_WM_HINTS));
    QList<quint32> protocols = ItemsOf(server, RequestItems(server, window, protocolsName));
    hints.resize(kHintItems);
    hints[0] |= kHasInputHint;
    hints[1] = accepts ? 1 : 0;
    protocols.removeAll(takeFocus);
    if (accepts) {
        protocols.append(takeFocus);
    }
    Store(server, window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, hints);
    Store(server, window, protocolsName, XCB_ATOM_ATOM, protocols);
}

}  // namespace tickwell::platform

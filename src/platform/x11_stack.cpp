// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/x11_stack.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QList>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace tickwell {

namespace {

constexpr quint32 kMostItems = 4096;  // of a list of windows that is read
constexpr quint32 kAddState = 1;
constexpr quint32 kFromApplication = 1;
constexpr quint32 kFromPager = 2;  // restacking is heard from panels and pagers alone

struct Freed {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename Reply>
using Answer = std::unique_ptr<Reply, Freed>;

xcb_connection_t* Server() {
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

xcb_window_t RootOf(xcb_connection_t* server) {
    return xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
}

xcb_get_property_cookie_t AskItems(xcb_connection_t* server, xcb_window_t window, xcb_atom_t property) {
    return xcb_get_property(server, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, kMostItems);
}

/// A property made of 32-bit items; empty where it is absent.
QList<quint32> Items(xcb_connection_t* server, xcb_get_property_cookie_t request) {
    const Answer<xcb_get_property_reply_t> reply(xcb_get_property_reply(server, request, nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    QList<quint32> items(reply->value_len);
    std::memcpy(items.data(), xcb_get_property_value(reply.get()), static_cast<size_t>(items.size()) * 4);
    return items;
}

void Ask(xcb_connection_t* server, xcb_window_t window, xcb_atom_t message, std::array<quint32, 5> words) {
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

}  // namespace

void X11Stack::LearnNames(xcb_connection_t* server) {
    const std::array<std::pair<const char*, quint32*>, 5> wanted{
        {{"_NET_SUPPORTING_WM_CHECK", &m_names.checkWindow},
         {"_NET_WM_STATE", &m_names.state},
         {"_NET_WM_STATE_ABOVE", &m_names.above},
         {"_NET_CLIENT_LIST_STACKING", &m_names.stacking},
         {"_NET_RESTACK_WINDOW", &m_names.restack}}};
    std::array<xcb_intern_atom_cookie_t, 5> requests{};
    std::transform(wanted.begin(), wanted.end(), requests.begin(), [server](const auto& name) {
        return xcb_intern_atom(server, 0, static_cast<quint16>(std::strlen(name.first)), name.first);
    });
    for (size_t i = 0; i < wanted.size(); ++i) {
        const Answer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, requests[i], nullptr));
        *wanted[i].second = reply ? reply->atom : 0;
    }
}

void X11Stack::PutAbove(quintptr window) {
    xcb_connection_t* server = Server();
    if (server == nullptr) {
        return;
    }
    if (m_names.state == 0) {
        LearnNames(server);
    }
    const auto ours = static_cast<xcb_window_t>(window);
    // All asked at once: each answer that is waited for alone is one more wake-up.
    const auto checkWindow = AskItems(server, RootOf(server), m_names.checkWindow);
    const auto stacking = AskItems(server, RootOf(server), m_names.stacking);
    const auto states = AskItems(server, ours, m_names.state);
    const bool hasManager = !Items(server, checkWindow).isEmpty();
    const QList<quint32> stack = Items(server, stacking);
    const bool isAbove = Items(server, states).contains(m_names.above);
    if (!hasManager) {
        const quint32 above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(server, ours, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    } else {
        // A manager that has nothing to do is left alone.
        const bool isTop = !stack.isEmpty() && stack.constLast() == ours;
        if (!isTop || !isAbove) {
            Ask(server, ours, m_names.state, {kAddState, m_names.above, 0, kFromApplication, 0});
            Ask(server, ours, m_names.restack, {kFromPager, 0, XCB_STACK_MODE_ABOVE, 0, 0});
        }
    }
    xcb_flush(server);
}

}  // namespace tickwell

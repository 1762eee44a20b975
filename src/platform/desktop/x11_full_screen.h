// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QHash>
#include <QList>
#include <QObject>
#include <array>

#include "core/ports/full_screen_watch.h"
#include "platform/desktop/full_screen_rule.h"

namespace tickwell::platform {

/// Detects full-screen windows on X11 by the hints of EWMH. While there is a listener, the X server reports
/// property changes of the root window and of all managed windows. Does nothing without X11.
class X11FullScreen : public QObject, public FullScreenWatch, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    X11FullScreen() = default;
    ~X11FullScreen() override;
    Q_DISABLE_COPY_MOVE(X11FullScreen)

    void Listen(std::function<void()> changed) override;
    bool IsCovered(quintptr window) override;

private:
    enum AtomName : size_t {
        CheckWindow,
        Stacking,
        Active,
        CurrentDesktop,
        ShowingDesktop,
        State,
        FullScreen,
        Hidden,
        Desktop,
        AtomCount
    };
    /// What the window manager publishes about the whole desktop.
    struct Manager {
        bool isThere = false;
        bool showsDesktop = false;
        quint32 active = 0;
        QList<quint32> desktop;  ///< the current one; empty if there are no workspaces
        QList<quint32> stack;    ///< the managed windows from the lowest to the topmost
    };

    /// The connection, with the atoms interned; null without X11.
    xcb_connection_t* Server();
    quint32 Atom(AtomName name) const { return m_atoms.at(name); }
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    bool IsOfInterest(const xcb_generic_event_t& event) const;
    void Schedule();
    Manager ReadManager(xcb_connection_t* server) const;
    void WatchOnly(xcb_connection_t* server, const QList<quint32>& windows);
    void Select(xcb_connection_t* server, const QList<quint32>& windows, quint32 events);
    void Unwatch(xcb_connection_t* server);
    QList<DesktopWindow> ReadWindows(xcb_connection_t* server, const Manager& manager) const;

    std::array<quint32, AtomCount> m_atoms{};
    QHash<quint32, quint32> m_watched;  // by window: the events selected for this object
    std::function<void()> m_changed;
    bool m_isDue = false;  // a call of m_changed is pending
};

}  // namespace tickwell::platform

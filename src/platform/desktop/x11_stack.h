// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QList>
#include <array>

#include "core/ports/window_stack.h"

namespace tickwell::platform {

/// The window stack of an X11 screen, through the hints and client messages of EWMH. Restacking is requested
/// as a panel requests it, because Qt's own way of raising a window gives it the focus under some window
/// managers. Without a window manager the window is restacked directly. Without X11 nothing happens.
///
/// While the window is on top, and the window manager publishes the stack, nothing is queried until the X
/// server reports a change: Qt already receives the property changes of the root window and of the window
/// itself.
class X11Stack : public WindowStack, private QAbstractNativeEventFilter {
public:
    X11Stack() = default;
    ~X11Stack() override;
    Q_DISABLE_COPY_MOVE(X11Stack)

    void Declare(quintptr window, bool inSwitcher) override;
    void AskForDeclared(quintptr window) override;
    void PutAbove(quintptr window) override;
    void BringToUser(quintptr window) override;
    bool IsLost(quintptr window) override;

private:
    /// The states that the window manager keeps for a window.
    struct Kept {
        QList<quint32> states;
        QList<quint32> desktop;  ///< one item, or none if there is no window manager or it has no workspaces

        bool operator==(const Kept& other) const = default;
    };
    enum AtomName : size_t {
        CheckWindow,
        State,
        Above,
        Sticky,
        SkipTaskbar,
        SkipPager,
        DemandsAttention,
        Desktop,
        CurrentDesktop,
        ShowingDesktop,
        Stacking,
        Restack,
        UserTime,
        WmState,
        AtomCount
    };

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    /// The connection, with the atoms interned; null without X11.
    xcb_connection_t* Server();
    quint32 Atom(AtomName name) const { return m_atoms.at(name); }
    bool HasDeclared(const Kept& kept) const;
    void AskAgain(xcb_connection_t* server, quint32 window, const Kept& kept);
    void SendDeclared(xcb_connection_t* server, quint32 window) const;

    std::array<quint32, AtomCount> m_atoms{};
    bool m_refusesFocus = false;  // from when the window is declared until it is first raised
    bool m_isInSwitcher = false;  // as declared last
    Kept m_refused;               // the kept states when the last request was refused
    quint32 m_settled = 0;        // the window that was on top and as declared, with no change since; 0: none
};

}  // namespace tickwell::platform

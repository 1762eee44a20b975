// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <array>

#include "core/ports/window_stack.h"

struct xcb_connection_t;

namespace tickwell::platform {

/// The window stack of an X11 screen, through the hints and client messages of EWMH. Restacking is requested
/// as a panel requests it, because Qt's own way of raising a window gives it the focus under some window
/// managers. Without a window manager the window is restacked directly. Without X11 nothing happens.
class X11Stack : public WindowStack {
public:
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
};

}  // namespace tickwell::platform

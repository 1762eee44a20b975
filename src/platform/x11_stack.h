// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/window_stack.h"

struct xcb_connection_t;

namespace tickwell {

/// The stack of an X11 screen. The window manager is asked by client messages, as a panel would ask it: the
/// toolkit's own way of raising a window hands it the keyboard under some managers. Without X11 nothing
/// happens.
class X11Stack : public WindowStack {
public:
    void PutAbove(quintptr window) override;

private:
    /// Names of the window system, asked for once.
    struct Names {
        quint32 checkWindow = 0;
        quint32 state = 0;
        quint32 above = 0;
        quint32 stacking = 0;
        quint32 restack = 0;
    };

    void LearnNames(xcb_connection_t* server);

    Names m_names;
};

}  // namespace tickwell

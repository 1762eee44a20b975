// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "core/handlers.h"
#include "core/ports/full_screen_watch.h"

namespace tickwell::shell {

/// Decides whether the main window is hidden because another program fills its screen. A window that the user
/// has explicitly requested stays visible until that program no longer covers it.
class FullScreenHiding {
public:
    /// The main window as this class needs it.
    struct View {
        std::function<quintptr()> id;   ///< of its native window
        std::function<bool()> isInUse;  ///< a menu or a dialog of it is open, or it is being dragged
        std::function<void()> update;   ///< shows or hides it, by IsHidden
    };

    /// `watch` and `handlers` outlive this object.
    FullScreenHiding(FullScreenWatch& watch, Handlers& handlers, View view);
    ~FullScreenHiding();

    /// Starts or ends watching. When it ends, a hidden window is shown.
    void Use(bool isOn);
    bool IsHidden() const { return m_isHidden; }

    /// To be called after any change: hides or shows the window. While it is in use, it is not hidden.
    void Look();

    /// The user has requested the window: it counts as shown from now on; the caller shows it.
    void Insist();

private:
    FullScreenWatch& m_watch;
    Handlers& m_handlers;
    View m_view;
    bool m_isOn = false;
    bool m_isHidden = false;
    bool m_isWanted = false;  // the user wants it although it is covered
};

}  // namespace tickwell::shell

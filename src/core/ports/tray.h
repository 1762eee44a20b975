// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

class QMenu;

namespace tickwell {

/// The desktop's notification area. Nothing here waits for it.
class Tray {
public:
    virtual ~Tray() = default;

    /// Whether an icon would be seen, as far as is known. The desktop is asked anew with each call; if its
    /// answer is another one, WhenChanged tells so within about a second.
    virtual bool IsThere() = 0;

    /// `changed` is called from the event loop each time that IsThere may have changed. One receiver; an
    /// empty function takes the old one away.
    virtual void WhenChanged(std::function<void()> changed) = 0;

    /// Puts the program's icon there. `menu` opens by its right button and is its caller's, who keeps it
    /// until Hide(); `onClick` is called for the left button. `onShown` is called once, at once or within
    /// about a second, unless Hide() comes first: true when the icon is there, false if the desktop takes
    /// none.
    virtual void Show(const QString& tip, QMenu& menu, std::function<void()> onClick,
                      std::function<void(bool isShown)> onShown) = 0;

    /// Takes the icon away, also one that is still to come; without one it does nothing.
    virtual void Hide() = 0;
};

}  // namespace tickwell

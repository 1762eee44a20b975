// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

class QMenu;

namespace tickwell {

/// The desktop's notification area. All calls are asynchronous.
class Tray {
public:
    virtual ~Tray() = default;

    /// Whether an icon would be visible, as far as is known. Each call queries the desktop again; if the
    /// answer differs, WhenChanged's listener is notified within about a second.
    virtual bool IsThere() = 0;

    /// `changed` is called from the event loop whenever IsThere may have changed. There is one listener; an
    /// empty function removes it.
    virtual void WhenChanged(std::function<void()> changed) = 0;

    /// Shows the program's icon. The right button opens `menu`, which the caller owns and keeps until Hide();
    /// the left button calls `onClick`. `onShown` is called once, immediately or within about a second,
    /// unless Hide() comes first: true if the icon is shown, false if the desktop does not accept one.
    virtual void Show(const QString& tip, QMenu& menu, std::function<void()> onClick,
                      std::function<void(bool isShown)> onShown) = 0;

    /// Removes the icon, even if it is not shown yet. Does nothing if there is none.
    virtual void Hide() = 0;
};

}  // namespace tickwell

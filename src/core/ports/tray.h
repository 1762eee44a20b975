// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

class QMenu;

namespace tickwell {

/// The desktop's notification area.
class Tray {
public:
    virtual ~Tray() = default;

    /// Whether an icon would be seen at this moment.
    virtual bool IsThere() const = 0;

    /// Puts the program's icon there. `menu` opens by its right button and is its caller's, who keeps it
    /// until Hide(); `onClick` is called for the left button.
    virtual void Show(const QString& tip, QMenu& menu, std::function<void()> onClick) = 0;

    /// Takes the icon away; without one it does nothing.
    virtual void Hide() = 0;
};

}  // namespace tickwell

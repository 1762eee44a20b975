// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QSystemTrayIcon>
#include <functional>
#include <memory>

#include "core/ports/tray.h"

namespace tickwell {

/// The notification area by the toolkit, for hosts that speak over the session bus and for those of X11.
class QtTray : public Tray {
public:
    /// `icon` makes the icon, when one is wanted.
    explicit QtTray(std::function<QIcon()> icon);
    ~QtTray() override;

    bool IsThere() const override;
    void Show(const QString& tip, QMenu& menu, std::function<void()> onClick) override;
    void Hide() override;

private:
    struct Later {  // an icon may be hidden from inside its own signal
        void operator()(QSystemTrayIcon* tray) const;
    };

    std::function<QIcon()> m_icon;
    std::unique_ptr<QSystemTrayIcon, Later> m_tray;  // while the icon is shown
    bool m_wasAsked = false;
};

}  // namespace tickwell

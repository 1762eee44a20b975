// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QSystemTrayIcon>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "core/ports/tray.h"
#include "platform/bus/message_bus.h"
#include "platform/desktop/x11_tray_watch.h"

namespace tickwell::platform {

/// The notification area through Qt, for hosts on the session bus and on X11. Qt blocks on the session bus
/// when it shows or removes an icon, so icons are shown and removed only right after the bus has answered.
class QtTray : public Tray {
public:
    /// `icon` creates the icon when it is needed.
    explicit QtTray(std::function<QIcon()> icon);
    ~QtTray() override;
    Q_DISABLE_COPY_MOVE(QtTray)

    bool IsThere() override;
    void WhenChanged(std::function<void()> changed) override { m_changed = std::move(changed); }
    void Show(const QString& tip, QMenu& menu, std::function<void()> onClick,
              std::function<void(bool isShown)> onShown) override;
    void Hide() override;

private:
    struct Later {  // an icon may be hidden by a slot of its own signal
        void operator()(QSystemTrayIcon* tray) const;
    };
    using Icon = std::unique_ptr<QSystemTrayIcon, Later>;

    struct Wanted {
        QString tip;
        QMenu* menu;
        std::function<void()> onClick;
        std::function<void(bool isShown)> onShown;
    };

    /// The kind of hosts that Qt uses, decided by the first icon for the whole run.
    enum class HostKind { Undecided, Bus, Screen };

    bool IsKnownThere();
    void Look();
    void Tell();
    void TakeBusHost(const MessageBus::Reply& reply);
    void ShowWanted();
    void PutUp(const Wanted& wanted);
    void RemoveLeaving();

    std::function<QIcon()> m_icon;
    std::function<void()> m_changed;
    MessageBus m_bus{MessageBus::Kind::Session};
    HostKind m_kind = HostKind::Undecided;
    bool m_hasBusHost = false;
    bool m_busHangs = false;
    bool m_isLooking = false;
    std::optional<Wanted> m_wanted;  // while the bus is queried
    Icon m_tray;                     // null unless the icon is shown
    std::vector<Icon> m_leaving;     // until the bus answers
    QTimer m_retry;
    X11TrayWatch m_screenTray;
};

}  // namespace tickwell::platform

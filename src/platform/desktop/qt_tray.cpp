// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/qt_tray.h"

#include <QDBusConnection>
#include <QMenu>
#include <utility>

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr int kRetry = 2000;  // ms until a bus that did not answer is queried again

constexpr auto kWatcher = "org.kde.StatusNotifierWatcher";

/// The query whether a host on the session bus shows icons.
MessageBus::Method HostQuestion() {
    return {kWatcher,
            "/StatusNotifierWatcher",
            "org.freedesktop.DBus.Properties",
            "Get",
            {kWatcher, "IsStatusNotifierHostRegistered"}};
}

/// A query that the bus itself answers.
MessageBus::Method BusQuestion() {
    return {"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId", {}};
}

}  // namespace

void QtTray::Later::operator()(QSystemTrayIcon* tray) const {
    tray->hide();
    tray->deleteLater();
}

QtTray::QtTray(std::function<QIcon()> icon)
    : m_icon(std::move(icon)), m_screenTray([this] { QTimer::singleShot(0, &m_retry, [this] { Tell(); }); }) {
    const QByteArray watcherComesOrGoes =
        "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
        "member='NameOwnerChanged',arg0='" +
        QByteArray(kWatcher) + "'";
    const QByteArray hostComesOrGoes =
        "type='signal',path='/StatusNotifierWatcher',interface='" + QByteArray(kWatcher) + "'";
    m_bus.Listen({watcherComesOrGoes, hostComesOrGoes}, [this] { Look(); });
    m_retry.setSingleShot(true);
    QObject::connect(&m_retry, &QTimer::timeout, &m_retry, [this] { RemoveLeaving(); });
    QTimer::singleShot(0, &m_retry, [this] { Look(); });
}

/// No event loop runs any more that could remove an icon. An icon on the bus is leaked and disappears with
/// the program's connection: deleting it would block if the bus hangs.
QtTray::~QtTray() {
    m_leaving.push_back(std::move(m_tray));
    for (Icon& icon : m_leaving) {
        QSystemTrayIcon* const left = icon.release();
        if (m_kind == HostKind::Screen) {
            delete left;
        }
    }
}

bool QtTray::IsThere() {
    Look();
    return IsKnownThere();
}

bool QtTray::IsKnownThere() {
    switch (m_kind) {
        case HostKind::Undecided:  // Qt would ask the bus first
            return !m_busHangs && (m_hasBusHost || m_screenTray.IsThere());
        case HostKind::Bus:
            return m_hasBusHost;
        case HostKind::Screen:
            return m_screenTray.IsThere();
    }
    return false;
}

void QtTray::Look() {
    if (m_isLooking || m_kind == HostKind::Screen) {
        return;
    }
    m_isLooking = true;
    m_bus.Call(HostQuestion(), [this](const MessageBus::Reply& reply) {
        m_isLooking = false;
        TakeBusHost(reply);
    });
}

/// A host is only usable if Qt is connected to the bus as well. Qt does not reconnect to a lost bus, but once
/// it uses hosts on the bus it opens a new connection for each icon.
void QtTray::TakeBusHost(const MessageBus::Reply& reply) {
    const bool hasHost =
        reply.value == QVariant(true) &&
        (m_kind == HostKind::Bus || QDBusConnection::sessionBus().isConnected());  // it answers: no blocking
    const bool isOther = hasHost != m_hasBusHost || reply.hangs != m_busHangs;
    m_hasBusHost = hasHost;
    m_busHangs = reply.hangs;
    if (isOther) {
        Tell();
    }
}

void QtTray::Tell() {
    if (m_changed) {
        m_changed();
    }
}

void QtTray::Show(const QString& tip, QMenu& menu, std::function<void()> onClick,
                  std::function<void(bool isShown)> onShown) {
    m_wanted = Wanted{tip, &menu, std::move(onClick), std::move(onShown)};
    if (m_kind == HostKind::Screen) {
        ShowWanted();
        return;
    }
    m_bus.Call(HostQuestion(), [this](const MessageBus::Reply& reply) {
        TakeBusHost(reply);
        if (reply.hangs && m_wanted) {
            std::exchange(m_wanted, std::nullopt)->onShown(false);
        }
        ShowWanted();
    });
}

void QtTray::ShowWanted() {
    if (!m_wanted) {
        return;
    }
    const Wanted wanted = *std::exchange(m_wanted, std::nullopt);
    const bool isThere = IsKnownThere();
    if (isThere) {
        PutUp(wanted);
    }
    wanted.onShown(isThere);
}

void QtTray::PutUp(const Wanted& wanted) {
    if (m_kind == HostKind::Undecided) {
        m_kind = m_hasBusHost ? HostKind::Bus : HostKind::Screen;
    }
    m_tray.reset(new QSystemTrayIcon(m_icon()));
    m_tray->setToolTip(wanted.tip);
    m_tray->setContextMenu(wanted.menu);
    QObject::connect(m_tray.get(), &QSystemTrayIcon::activated, m_tray.get(),
                     [onClick = wanted.onClick](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger) {
                             onClick();
                         }
                     });
    m_tray->show();
}

void QtTray::Hide() {
    m_wanted.reset();
    if (m_tray == nullptr) {
        return;
    }
    if (m_kind == HostKind::Screen) {
        m_tray.reset();
        return;
    }
    QObject::disconnect(m_tray.get(), &QSystemTrayIcon::activated, nullptr, nullptr);
    m_leaving.push_back(std::move(m_tray));
    RemoveLeaving();
}

void QtTray::RemoveLeaving() {
    m_bus.Call(BusQuestion(), [this](const MessageBus::Reply& reply) {
        if (reply.hangs) {
            m_retry.start(kRetry);
        } else {
            m_leaving.clear();
        }
    });
}

}  // namespace tickwell::platform

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt_tray.h"

#include <xcb/xcb.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QMenu>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 500;  // ms for the bus; a menu waits for the answer

/// Whether a host of the session bus shows icons.
bool BusHostIsThere() {
    const QString watcher = u"org.kde.StatusNotifierWatcher"_s;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(watcher).value()) {
        return false;
    }
    QDBusMessage question = QDBusMessage::createMethodCall(watcher, u"/StatusNotifierWatcher"_s,
                                                           u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << watcher << u"IsStatusNotifierHostRegistered"_s;
    const QDBusReply<QDBusVariant> answer = bus.call(question, QDBus::Block, kPatience);
    return answer.isValid() && answer.value().variant().toBool();
}

/// Whether a window of the X11 screen takes icons in.
bool ScreenHostIsThere() {
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr) {
        return false;
    }
    constexpr auto kSelection = "_NET_SYSTEM_TRAY_S0";
    xcb_connection_t* server = x11->connection();
    const auto name = xcb_intern_atom(server, 1, static_cast<quint16>(std::strlen(kSelection)), kSelection);
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> atom(
        xcb_intern_atom_reply(server, name, nullptr), &std::free);
    if (!atom || atom->atom == XCB_ATOM_NONE) {
        return false;
    }
    const auto question = xcb_get_selection_owner(server, atom->atom);
    const std::unique_ptr<xcb_get_selection_owner_reply_t, decltype(&std::free)> owner(
        xcb_get_selection_owner_reply(server, question, nullptr), &std::free);
    return owner && owner->owner != XCB_WINDOW_NONE;
}

}  // namespace

void QtTray::Later::operator()(QSystemTrayIcon* tray) const {
    tray->hide();
    tray->deleteLater();
}

QtTray::QtTray(std::function<QIcon()> icon) : m_icon(std::move(icon)) {}

QtTray::~QtTray() {
    delete m_tray.release();  // no event loop will come to do it
}

/// The toolkit decides with the first question for the whole run which of the two kinds of host it speaks to:
/// it is asked only once an icon is wanted, and is believed from then on.
bool QtTray::IsThere() const {
    return m_wasAsked ? QSystemTrayIcon::isSystemTrayAvailable() : BusHostIsThere() || ScreenHostIsThere();
}

void QtTray::Show(const QString& tip, QMenu& menu, std::function<void()> onClick) {
    m_wasAsked = true;
    m_tray.reset(new QSystemTrayIcon(m_icon()));
    m_tray->setToolTip(tip);
    m_tray->setContextMenu(&menu);
    QObject::connect(m_tray.get(), &QSystemTrayIcon::activated, m_tray.get(),
                     [onClick = std::move(onClick)](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger) {
                             onClick();
                         }
                     });
    m_tray->show();
}

void QtTray::Hide() {
    m_tray.reset();
}

}  // namespace tickwell

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/bus/bus_presence.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <utility>

#include "platform/log.h"

namespace tickwell::platform {

namespace {

constexpr auto kBus = "org.freedesktop.DBus";
constexpr auto kBusPath = "/org/freedesktop/DBus";

QDBusMessage CallOfTheBus(const char* method, const QVariantList& arguments) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(QString::fromLatin1(kBus), QString::fromLatin1(kBusPath),
                                       QString::fromLatin1(kBus), QString::fromLatin1(method));
    call.setArguments(arguments);
    return call;
}

}  // namespace

BusPresence::BusPresence(const Names& names, int retry) : m_names(names), m_retry(retry) {
    m_step.setSingleShot(true);
    QObject::connect(&m_step, &QTimer::timeout, &m_step, [this] { Step(); });
}

void BusPresence::Appear(std::unique_ptr<QDBusVirtualObject> object) {
    Leave();
    m_object = std::move(object);
    Ask();
}

/// Checks with an asynchronous call whether the bus responds: Qt connects on first use and would block on a
/// bus that hangs.
void BusPresence::Ask() {
    m_bus = std::make_unique<MessageBus>(MessageBus::Kind::Session);
    const MessageBus::Method getId{kBus, kBusPath, kBus, "GetId", {}};
    m_bus->Call(getId, [this](const MessageBus::Reply& reply) {
        m_answers = reply.value.has_value();
        if (m_answers || reply.hangs) {
            m_step.start(m_answers ? 0 : m_retry);
        } else {
            qCWarning(PlatformLog, "There is no session bus: %s", m_names.consequence);
        }
    });
}

void BusPresence::Step() {
    m_bus.reset();
    if (m_answers) {
        Register();
    } else {
        Ask();
    }
}

void BusPresence::Register() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.registerVirtualObject(QString::fromLatin1(m_names.path), m_object.get())) {
        qCWarning(PlatformLog, "The session bus cannot be used: %s", m_names.consequence);
        return;
    }
    m_isRegistered = true;
    bus.send(CallOfTheBus("RequestName", {QString::fromLatin1(m_names.service), 0U}));
}

void BusPresence::Leave() {
    m_step.stop();
    m_bus.reset();
    if (std::exchange(m_isRegistered, false)) {
        QDBusConnection bus = QDBusConnection::sessionBus();
        bus.send(CallOfTheBus("ReleaseName", {QString::fromLatin1(m_names.service)}));
        bus.unregisterObject(QString::fromLatin1(m_names.path));
    }
    m_object.reset();
}

void BusPresence::Tell(const char* interface, const char* signal, const QVariantList& arguments) const {
    if (!m_isRegistered) {
        return;
    }
    QDBusMessage message = QDBusMessage::createSignal(
        QString::fromLatin1(m_names.path), QString::fromLatin1(interface), QString::fromLatin1(signal));
    message.setArguments(arguments);
    QDBusConnection::sessionBus().send(message);
}

}  // namespace tickwell::platform

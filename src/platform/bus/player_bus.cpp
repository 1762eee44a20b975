// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/bus/player_bus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QStringList>
#include <algorithm>
#include <utility>

#include "remote/bus_types.h"
#include "remote/player_interface.h"
#include "remote/refusal.h"

namespace tickwell::platform {

namespace {

/// Converts a received value to the types of bus_types.h.
QVariant Received(const QVariant& value) {
    if (value.metaType() == QMetaType::fromType<QDBusObjectPath>()) {
        return QVariant::fromValue(remote::ObjectPath{value.value<QDBusObjectPath>().path()});
    }
    if (value.metaType() == QMetaType::fromType<QDBusVariant>()) {
        return QVariant::fromValue(remote::BoxedValue{value.value<QDBusVariant>().variant()});
    }
    return value;
}

/// Converts a value to the types that Qt D-Bus sends.
QVariant Sent(const QVariant& value) {
    if (value.metaType() == QMetaType::fromType<remote::ObjectPath>()) {
        return QVariant::fromValue(QDBusObjectPath(value.value<remote::ObjectPath>().path));
    }
    if (value.metaType() == QMetaType::fromType<remote::BoxedValue>()) {
        return QVariant::fromValue(QDBusVariant(Sent(value.value<remote::BoxedValue>().value)));
    }
    if (value.metaType() == QMetaType::fromType<QVariantMap>()) {
        QVariantMap map = value.toMap();
        std::transform(map.begin(), map.end(), map.begin(), &Sent);
        return map;
    }
    return value;
}

QVariantList EachOf(QVariantList values, QVariant (*convert)(const QVariant& value)) {
    std::transform(values.begin(), values.end(), values.begin(), convert);
    return values;
}

}  // namespace

/// The object that receives the calls of media keys and other programs.
class PlayerBus::Object : public QDBusVirtualObject {
public:
    explicit Object(Run run) : m_run(std::move(run)) {}

    QString introspect(const QString& /*path*/) const override {
        return QString::fromLatin1(remote::kPlayerIntrospection);
    }

    /// Returning false leaves the call to Qt, which introspects and replies to other interfaces with an
    /// error.
    bool handleMessage(const QDBusMessage& call, const QDBusConnection& connection) override {
        const QStringList ours{QString(), QString::fromLatin1(remote::kApplicationInterface),
                               QString::fromLatin1(remote::kPlayerInterface),
                               QString::fromLatin1(remote::kPropertiesInterface)};
        if (!ours.contains(call.interface())) {
            return false;
        }
        const QDBusMessage reply = ReplyTo(call);
        if (call.isReplyRequired()) {
            connection.send(reply);
        }
        return true;
    }

private:
    QDBusMessage ReplyTo(const QDBusMessage& call) const {
        try {
            return call.createReply(EachOf(m_run({.interface = call.interface(),
                                                  .member = call.member(),
                                                  .arguments = EachOf(call.arguments(), &Received)}),
                                           &Sent));
        } catch (const remote::RefusedCall& refused) {
            return call.createErrorReply(remote::ErrorNameOf(refused.Kind()), refused.Text());
        }
    }

    Run m_run;
};

PlayerBus::PlayerBus(int retry)
    : m_presence({.service = remote::kPlayerService,
                  .path = remote::kPlayerPath,
                  .consequence = "media keys do not reach the CD player"},
                 retry) {}

void PlayerBus::Offer(Run run) {
    m_presence.Appear(std::make_unique<Object>(std::move(run)));
}

void PlayerBus::TellChanged(const QVariantMap& properties) {
    m_presence.Tell(remote::kPropertiesInterface, "PropertiesChanged",
                    {QString::fromLatin1(remote::kPlayerInterface), Sent(properties), QStringList()});
}

void PlayerBus::TellJump(qint64 position) {
    m_presence.Tell(remote::kPlayerInterface, "Seeked", {position});
}

}  // namespace tickwell::platform

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/upower.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QVariantMap>
#include <cmath>

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 500;  // ms; a reading takes 1 to 4
constexpr uint kTypeBattery = 2;

/// All properties of one interface; nothing where the service does not answer.
std::optional<QVariantMap> Properties(const QString& path, const QString& interface) {
    QDBusMessage call = QDBusMessage::createMethodCall(u"org.freedesktop.UPower"_s, path,
                                                       u"org.freedesktop.DBus.Properties"_s, u"GetAll"_s);
    call.setArguments({interface});
    const QDBusMessage answer = QDBusConnection::systemBus().call(call, QDBus::Block, kPatience);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().size() != 1) {
        return std::nullopt;
    }
    return qdbus_cast<QVariantMap>(answer.arguments().constFirst());
}

}  // namespace

PowerReading UPower::Read() const {
    const auto service = Properties(u"/org/freedesktop/UPower"_s, u"org.freedesktop.UPower"_s);
    if (!service) {
        return m_otherwise.Read();
    }
    const auto device =
        Properties(u"/org/freedesktop/UPower/devices/DisplayDevice"_s, u"org.freedesktop.UPower.Device"_s);
    const bool hasBattery =
        device && device->value(u"Type"_s).toUInt() == kTypeBattery && device->value(u"IsPresent"_s).toBool();
    if (!hasBattery || !service->value(u"OnBattery"_s).toBool()) {
        return {Mains::On, std::nullopt, std::nullopt};
    }
    PowerReading reading{Mains::Off, static_cast<int>(std::lrint(device->value(u"Percentage"_s).toDouble())),
                         std::nullopt};
    if (const qint64 seconds = device->value(u"TimeToEmpty"_s).toLongLong(); seconds > 0) {
        reading.secondsLeft = seconds;
    }
    return reading;
}

}  // namespace tickwell

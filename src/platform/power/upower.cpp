// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/power/upower.h"

#include <cmath>
#include <utility>

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr uint kTypeBattery = 2;

/// A property of exactly this type.
template <typename Value>
std::optional<Value> PropertyOf(const QVariantMap& properties, const QString& name) {
    const QVariant value = properties.value(name);
    return value.metaType() == QMetaType::fromType<Value>() ? std::optional(value.value<Value>())
                                                            : std::nullopt;
}

MessageBus::Method PropertiesOf(const QByteArray& path, const QByteArray& interface) {
    return {"org.freedesktop.UPower", path, "org.freedesktop.DBus.Properties", "GetAll", {interface}, true};
}

}  // namespace

/// A pending request; completed by the second of the two replies.
struct UPower::Question {
    std::function<void(const PowerReading&)> onReading;
    std::optional<QVariant> service;
    std::optional<QVariant> device;
    int answers = 0;

    void Take(std::optional<QVariant> Question::*part, const std::optional<QVariant>& value,
              const PowerSupplies& supplies) {
        this->*part = value;
        if (++answers < 2) {
            return;
        }
        std::optional<PowerReading> reading;
        if (service) {
            reading = ReadingOf(service->toMap(), device.value_or(QVariant()).toMap());
        }
        if (!reading) {
            reading = supplies.Read();
            if (service && reading->mains == Mains::Unknown) {
                reading->mains = Mains::On;  // UPower is running, and the kernel reports no battery
            }
        }
        onReading(*reading);
    }
};

std::optional<PowerReading> ReadingOf(const QVariantMap& service, const QVariantMap& device) {
    const auto isOnBattery = PropertyOf<bool>(service, u"OnBattery"_s);
    const auto type = PropertyOf<uint>(device, u"Type"_s);
    const auto isPresent = PropertyOf<bool>(device, u"IsPresent"_s);
    const PowerReading onMains{Mains::On, std::nullopt, std::nullopt};
    if (isOnBattery == false) {
        return onMains;
    }
    if (!isOnBattery || !type || !isPresent) {
        return std::nullopt;
    }
    if (*type != kTypeBattery || !*isPresent) {
        return onMains;
    }
    const auto percent = PropertyOf<double>(device, u"Percentage"_s);
    if (!percent || !(*percent >= 0 && *percent <= 100)) {  // in this form it also rejects NaN
        return std::nullopt;
    }
    PowerReading reading{Mains::Off, static_cast<int>(std::lrint(*percent)), std::nullopt};
    const auto seconds = PropertyOf<qint64>(device, u"TimeToEmpty"_s);
    if (seconds && *seconds > 0 && *seconds <= kLongestTimeLeft) {
        reading.secondsLeft = *seconds;
    }
    return reading;
}

PowerQuestion UPower::Ask(std::function<void(const PowerReading& reading)> onReading) const {
    const auto question = std::make_shared<Question>(Question{std::move(onReading), {}, {}});
    const auto take = [this, weak = std::weak_ptr(question)](std::optional<QVariant> Question::*part) {
        return [this, weak, part](const MessageBus::Reply& reply) {
            if (const auto asked = weak.lock()) {
                asked->Take(part, reply.value, m_supplies);
            }
        };
    };
    m_bus.Call(PropertiesOf("/org/freedesktop/UPower", "org.freedesktop.UPower"), take(&Question::service));
    m_bus.Call(PropertiesOf("/org/freedesktop/UPower/devices/DisplayDevice", "org.freedesktop.UPower.Device"),
               take(&Question::device));
    return question;
}

}  // namespace tickwell::platform

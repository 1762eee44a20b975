// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariantMap>
#include <optional>

#include "core/ports/power.h"
#include "platform/bus/message_bus.h"
#include "platform/power/power_supplies.h"

namespace tickwell::platform {

/// The reading given by the properties of UPower and of its display device. nullopt if a required property is
/// missing, of the wrong type or out of range; an invalid remaining time is merely unknown.
std::optional<PowerReading> ReadingOf(const QVariantMap& service, const QVariantMap& device);

/// Queries UPower on the system bus for its display device, which combines all batteries of the machine. If
/// the service does not answer or its values are invalid, the kernel's files are read.
class UPower : public Power {
public:
    UPower() = default;

    PowerQuestion Ask(std::function<void(const PowerReading& reading)> onReading) const override;

private:
    struct Question;

    mutable MessageBus m_bus{MessageBus::Kind::System};  // connects with the first call
    PowerSupplies m_supplies;
};

}  // namespace tickwell::platform

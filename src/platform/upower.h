// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariantMap>
#include <optional>

#include "core/ports/power.h"
#include "platform/message_bus.h"
#include "platform/power_supplies.h"

namespace tickwell {

/// What UPower's properties and those of its display device, by their names, come to. Nothing if a property
/// that is needed is missing, of another type than UPower's, or outside its range; a remaining time of that
/// kind is not known.
std::optional<PowerReading> ReadingOf(const QVariantMap& service, const QVariantMap& device);

/// Asks UPower on the system bus, by its display device: all batteries of the machine as one. If the service
/// does not answer, or tells nonsense, the kernel's files are read.
class UPower : public Power {
public:
    UPower() = default;

    PowerQuestion Ask(std::function<void(const PowerReading& reading)> onReading) const override;

private:
    struct Question;

    mutable MessageBus m_bus{MessageBus::Kind::System};  // connects when it is first asked
    PowerSupplies m_supplies;
};

}  // namespace tickwell

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "core/ports/power.h"

namespace tickwell::platform {

/// Reads /sys/class/power_supply, for machines without a power service. Supplies of peripherals (scope
/// "Device") are ignored. Several batteries count as one.
class PowerSupplies {
public:
    explicit PowerSupplies(QString folder = QStringLiteral("/sys/class/power_supply"))
        : m_folder(std::move(folder)) {}

    /// The current reading. Values outside the range of a battery are treated as missing.
    PowerReading Read() const;

private:
    QString m_folder;
};

}  // namespace tickwell::platform

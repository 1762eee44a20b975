// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "core/ports/power.h"

namespace tickwell {

/// Reads the kernel's files of power supplies, for machines without a power service. Supplies of mice, phones
/// and the like (scope "Device") are not ours. Several batteries count as one.
class PowerSupplies {
public:
    explicit PowerSupplies(QString folder = QStringLiteral("/sys/class/power_supply"))
        : m_folder(std::move(folder)) {}

    /// The present reading. Numbers that no battery can have are as good as missing.
    PowerReading Read() const;

private:
    QString m_folder;
};

}  // namespace tickwell

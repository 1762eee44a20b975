// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>

#include "core/ports/power.h"

namespace tickwell {

/// Asks UPower on the system bus, by its display device: all batteries of the machine as one. Where the
/// service is not there, another source is asked.
class UPower : public Power {
public:
    /// `otherwise` outlives this object.
    explicit UPower(const Power& otherwise) : m_otherwise(otherwise) {}

    PowerReading Read() const override;

private:
    const Power& m_otherwise;
};

}  // namespace tickwell

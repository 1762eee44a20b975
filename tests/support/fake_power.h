// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/power.h"

namespace tickwell {

/// A machine that runs on what a test says.
class FakePower : public Power {
public:
    PowerReading Read() const override { return m_reading; }
    void SetReading(const PowerReading& reading) { m_reading = reading; }

private:
    PowerReading m_reading;
};

}  // namespace tickwell

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <optional>

namespace tickwell {

enum class Mains { On, Off, Unknown };

/// What the machine runs on. The other two are known only where there is a battery.
struct PowerReading {
    Mains mains = Mains::Unknown;
    std::optional<int> percent;         ///< charge that is left, 0..100
    std::optional<qint64> secondsLeft;  ///< until the battery is empty; nothing where it is not known

    bool operator==(const PowerReading&) const = default;
};

class Power {
public:
    virtual ~Power() = default;

    /// The present reading; never an error: what cannot be read is unknown.
    virtual PowerReading Read() const = 0;
};

}  // namespace tickwell

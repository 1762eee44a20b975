// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <functional>
#include <memory>
#include <optional>

namespace tickwell {

enum class Mains { On, Off, Unknown };

/// The power source. Charge and remaining time are known only if there is a battery.
struct PowerReading {
    Mains mains = Mains::Unknown;
    std::optional<int> percent;  ///< remaining charge, 0..100
    std::optional<qint64>
        secondsLeft;  ///< until the battery is empty, 1..kLongestTimeLeft; nullopt if unknown

    bool operator==(const PowerReading&) const = default;
};

inline constexpr qint64 kLongestTimeLeft = 864'000;  ///< s, ten days; a longer time counts as unknown

/// A pending request for a reading. Destroying it cancels the request, which is then not answered.
using PowerQuestion = std::shared_ptr<void>;

class Power {
public:
    virtual ~Power() = default;

    /// Requests the current reading. `onReading` is called once, immediately or from the event loop within
    /// about a second. There are no errors: whatever cannot be read is unknown.
    [[nodiscard]] virtual PowerQuestion Ask(
        std::function<void(const PowerReading& reading)> onReading) const = 0;
};

}  // namespace tickwell

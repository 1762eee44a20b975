// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <functional>
#include <memory>
#include <optional>

namespace tickwell {

enum class Mains { On, Off, Unknown };

/// What the machine runs on. The other two are known only where there is a battery.
struct PowerReading {
    Mains mains = Mains::Unknown;
    std::optional<int> percent;  ///< charge that is left, 0..100
    std::optional<qint64>
        secondsLeft;  ///< until the battery is empty, 1..kLongestTimeLeft; nothing if it is not known

    bool operator==(const PowerReading&) const = default;
};

inline constexpr qint64 kLongestTimeLeft = 864'000;  ///< s, ten days; what claims more is not known

/// A question for the power that is under way. Destroying it withdraws the question: there is no answer then.
using PowerQuestion = std::shared_ptr<void>;

class Power {
public:
    virtual ~Power() = default;

    /// Asks for the present reading. `onReading` is called once, at once or from the event loop within about
    /// a second; never an error: what cannot be read is unknown.
    [[nodiscard]] virtual PowerQuestion Ask(
        std::function<void(const PowerReading& reading)> onReading) const = 0;
};

}  // namespace tickwell

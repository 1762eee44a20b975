// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <limits>
#include <optional>

namespace tickwell::timing {

/// The text of a reading, h:mm'ss"fff, implemented separately from the program. A negative reading is shown
/// with a day added.
inline QString ReadingOf(qint64 ms) {
    ms = ms < 0 ? ms + 86'400'000 : ms;
    const auto padded = [](qint64 value, int width) -> QString {
        return (value < 0 ? QStringLiteral("-") : QString()) +
               QStringLiteral("%1").arg(value < 0 ? -value : value, width, 10, QLatin1Char('0'));
    };
    return QString::number(ms / 3'600'000) + u':' + padded(ms / 60'000 % 60, 2) + u'\'' +
           padded(ms / 1000 % 60, 2) + u'"' + padded(ms % 1000, 3);
}

/// The value, or nullopt if it does not fit in 32 bits with sign.
inline std::optional<qint64> Fitting(qint64 value) {
    const bool fits =
        value >= std::numeric_limits<qint32>::min() && value <= std::numeric_limits<qint32>::max();
    return fits ? std::optional(value) : std::nullopt;
}

/// The value of the tick counter when the machine has been running for `since` milliseconds.
inline qint64 TickAt(qint64 since) {
    const qint64 turn = qint64{1} << 32;
    const qint64 rest = since % turn;
    return rest >= turn / 2 ? rest - turn : rest;
}

}  // namespace tickwell::timing

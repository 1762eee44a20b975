// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QRandomGenerator>
#include <algorithm>

namespace tickwell::timing {

/// A pause in milliseconds of any order of magnitude, from 0 to 2^31 - 1 (24.8 days).
inline qint64 PauseOf(QRandomGenerator& random) {
    constexpr int kMostBits = 31;
    return static_cast<qint64>(random.generate64() >> (64 - random.bounded(1, kMostBits + 1)));
}

/// The start of a script in milliseconds since the machine started: shortly or long before the tick counter
/// changes its sign or wraps around, or just after the start.
inline qint64 BeginningOf(QRandomGenerator& random) {
    const qint64 signChange = qint64{1} << 31;
    return std::max<qint64>(0, random.bounded(5) * signChange - PauseOf(random));
}

}  // namespace tickwell::timing

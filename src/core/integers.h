// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

/// Sums of milliseconds and of tick readings are signed 32-bit; a result outside throws OverflowError, it
/// never wraps.
qint32 CheckedAdd(qint32 a, qint32 b);
qint32 CheckedSub(qint32 a, qint32 b);

/// `value` as a signed 32-bit integer; OverflowError when it does not fit.
qint32 Checked32(qint64 value);

/// numerator / denominator to the nearest whole number, halves to even. `denominator` is above 0.
qint64 RoundHalfEven(qint64 numerator, qint64 denominator);

/// The remainder of a / b in 0..b-1, for negative `a` as well. `b` is above 0.
qint64 FloorMod(qint64 a, qint64 b);

/// Milliseconds from one reading of the tick counter to a later one, right also where the counter turned over
/// between them. For pauses of less than 49 days; sums that the user sees go through CheckedSub.
constexpr quint32 TicksSince(qint32 earlier, qint32 later) {
    return static_cast<quint32>(later) - static_cast<quint32>(earlier);
}

/// Milliseconds until the tick counter, now at `tick`, turns from its largest value to its smallest.
constexpr qint64 UntilTickTurns(qint32 tick) {
    return (qint64{1} << 31) - tick;
}

}  // namespace tickwell

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

/// Arithmetic on milliseconds and tick counts is signed 32-bit; a result outside that range throws
/// OverflowError and never wraps.
qint32 CheckedAdd(qint32 a, qint32 b);
qint32 CheckedSub(qint32 a, qint32 b);

/// `value` as a signed 32-bit integer. Throws OverflowError if it does not fit.
qint32 Checked32(qint64 value);

/// numerator / denominator to the nearest whole number, halves to even. `denominator` is above 0.
qint64 RoundHalfEven(qint64 numerator, qint64 denominator);

/// The remainder of a / b in 0..b-1, for negative `a` as well. `b` is above 0.
qint64 FloorMod(qint64 a, qint64 b);

/// Milliseconds from one tick count to a later one, correct even if the counter wrapped in between. For
/// intervals of less than 49 days; durations that the user sees are computed with CheckedSub.
constexpr quint32 TicksSince(qint32 earlier, qint32 later) {
    return static_cast<quint32>(later) - static_cast<quint32>(earlier);
}

/// Milliseconds until the tick counter, now at `tick`, wraps from its largest value to its smallest.
constexpr qint64 UntilTickTurns(qint32 tick) {
    return (qint64{1} << 31) - tick;
}

}  // namespace tickwell

// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/integers.h"

#include <limits>

#include "core/errors.h"

namespace tickwell {

qint32 CheckedAdd(qint32 a, qint32 b) {
    return Checked32(qint64{a} + b);
}

qint32 CheckedSub(qint32 a, qint32 b) {
    return Checked32(qint64{a} - b);
}

qint32 Checked32(qint64 value) {
    if (value < std::numeric_limits<qint32>::min() || value > std::numeric_limits<qint32>::max()) {
        throw OverflowError();
    }
    return static_cast<qint32>(value);
}

qint64 RoundHalfEven(qint64 numerator, qint64 denominator) {
    qint64 quotient = numerator / denominator;
    qint64 rest = numerator % denominator;
    if (rest < 0) {  // from truncation to floor: 0 <= rest < denominator
        rest += denominator;
        --quotient;
    }
    const qint64 toNext = denominator - rest;
    const bool up = rest > toNext || (rest == toNext && quotient % 2 != 0);
    return up ? quotient + 1 : quotient;
}

qint64 FloorMod(qint64 a, qint64 b) {
    const qint64 rest = a % b;
    return rest < 0 ? rest + b : rest;
}

}  // namespace tickwell

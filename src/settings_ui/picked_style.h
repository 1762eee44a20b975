// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/settings.h"

namespace tickwell {

/// The style as a picker can show it: with a font that this machine has, in a size that can be drawn.
LineStyle OfferedStyle(const LineStyle& stored);

/// What becomes of a stored style whose offered form was turned into `picked`: only what was changed is taken
/// over, so that a font that this machine has not, or a size that cannot be drawn, is not lost by looking at
/// it.
LineStyle PickedStyle(const LineStyle& stored, const LineStyle& offered, const LineStyle& picked);

/// Smallest and largest size that a picker offers, points.
inline constexpr qint16 kSmallestSize = 1;
inline constexpr qint16 kLargestSize = 999;

}  // namespace tickwell

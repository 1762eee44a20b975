// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

// Times of day are stored as minutes since midnight.
inline constexpr qint32 kMinutesInHour = 60;
inline constexpr qint32 kLastMinute = 24 * kMinutesInHour - 1;

}  // namespace tickwell

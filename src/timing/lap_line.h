// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "timing/stopwatch.h"

namespace tickwell::timing {

/// "Lapse3  0:03'10"500".
QString LapLine(const Stopwatch::Lap& lap);

/// `  (+0:01'05"200)`, which can follow LapLine: the time since the previous lap.
QString IntervalText(const Stopwatch::Lap& lap);

/// The position at which the interval begins in a line of the list, or -1. Lines without an interval never
/// contain its first characters.
qsizetype FindInterval(QStringView text);

}  // namespace tickwell::timing

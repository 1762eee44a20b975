// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/calendar_widths.h"

#include <algorithm>
#include <cmath>

namespace tickwell::days {

namespace {

constexpr double kClosedWidth = 2715;  // twips
constexpr double kOpenWidth = 8805;
constexpr double kTwipsInInch = 1440;

}  // namespace

CalendarWidths CalendarWidthsFor(int closedNeed, int openNeed, int dpi) {
    const double closed = kClosedWidth * dpi / kTwipsInInch;
    const double open = kOpenWidth * dpi / kTwipsInInch;
    const double factor = std::max({1.0, closedNeed / closed, openNeed / open});
    return {static_cast<int>(std::lround(closed * factor)), static_cast<int>(std::lround(open * factor))};
}

}  // namespace tickwell::days

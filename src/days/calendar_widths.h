// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// The calendar's window is as wide as its month, or as the month and the list beside it; pixels.
struct CalendarWidths {
    int closed = 0;
    int open = 0;

    bool operator==(const CalendarWidths&) const = default;
};

/// 2715 and 8805 twips at `dpi` pixels an inch. Where the font asks for more, `closedNeed` or `openNeed`,
/// both grow by the same factor.
CalendarWidths CalendarWidthsFor(int closedNeed, int openNeed, int dpi);

}  // namespace tickwell

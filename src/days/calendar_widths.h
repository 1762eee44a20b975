// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell::days {

/// The width of the calendar window without and with the list beside the month, in pixels.
struct CalendarWidths {
    int closed = 0;
    int open = 0;

    bool operator==(const CalendarWidths&) const = default;
};

/// 2715 and 8805 twips at `dpi` pixels per inch. If the font needs more, namely `closedNeed` or `openNeed`,
/// both widths are scaled by the same factor.
CalendarWidths CalendarWidthsFor(int closedNeed, int openNeed, int dpi);

}  // namespace tickwell::days

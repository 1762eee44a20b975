// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::days {

inline constexpr int kMonthsInYear = 12;

/// What the buttons of the calendar do, in Tab order.
enum class CalendarAction {
    PreviousYear,
    PreviousMonth,
    Today,
    NextMonth,
    NextYear,
    DeleteMarks,
    ShowHelp,
    TogglePanel,
    AddAnniversary,
    EditAnniversary,
    DeleteAnniversaries,
    Search,
};
inline constexpr int kCalendarActions = 12;

/// The caption of the panel's button: what the next click does.
QString PanelCaption(bool isPanelOpen);

}  // namespace tickwell::days

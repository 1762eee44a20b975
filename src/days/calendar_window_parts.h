// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QWidget>
#include <functional>
#include <memory>

#include "core/handlers.h"
#include "core/ports/clock.h"
#include "core/ports/help_viewer.h"
#include "core/ports/message_boxes.h"
#include "core/settings.h"
#include "days/day_list.h"
#include "days/holiday_source.h"

namespace tickwell::days {

/// Functions that open the windows of the anniversary book above the calendar, which is blocked until they
/// are closed. If a function is empty, its buttons are disabled.
struct BookWindows {
    using Closed = std::function<void()>;

    /// Edits the row chosen in the list, or adds one on `date`. `closed` is called through Handlers when the
    /// window closes, or immediately if none was opened; never after `calendar` is destroyed.
    std::function<void(QDate date, QWidget* calendar, Closed closed)> edit;
    std::function<void(QWidget* calendar, Closed closed)> remove;

    /// Puts its results into the list.
    std::function<void(QWidget* calendar)> search;
};

/// What the calendar window uses; all outlive it.
struct CalendarWindowParts {
    store::DayDatabase& dayDatabase;
    const HolidaySource& holidays;
    const FurtherSettings& further;
    DayList& list;  ///< only this window shows it
    const Clock& clock;
    MessageBoxes& boxes;
    Handlers& handlers;
    HelpViewer& help;
    BookWindows book;
    TimerSource& timers;
};

}  // namespace tickwell::days

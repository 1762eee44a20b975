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
#include "days/day_list.h"

namespace tickwell {

/// How the calendar opens the windows of the anniversary book, above itself; it does not react until they are
/// closed. Where one is empty its buttons are disabled.
struct BookWindows {
    using Closed = std::function<void()>;

    /// For the row that the list has chosen, or for a new one on `date`. `closed` is called when the window
    /// has closed, at once when none was opened; it runs under Handlers, and not any more when `calendar` is
    /// gone.
    std::function<void(QDate date, QWidget* calendar, Closed closed)> edit;
    std::function<void(QWidget* calendar, Closed closed)> remove;

    /// What it finds is put into the list.
    std::function<void(QWidget* calendar)> search;
};

/// What the calendar's window works with; all outlive it.
struct CalendarWindowParts {
    const std::unique_ptr<DayDatabase>& dayDatabase;  ///< null while it is closed
    DayList& list;                                    ///< shown by this window alone
    const Clock& clock;
    MessageBoxes& boxes;
    Handlers& handlers;
    HelpViewer& help;
    BookWindows book;
    TimerSource& timers;
};

}  // namespace tickwell

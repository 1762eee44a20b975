// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>

#include "core/handlers.h"
#include "core/ports/clock.h"
#include "core/ports/message_boxes.h"
#include "core/settings.h"
#include "days/anniversary_days.h"
#include "days/calendar_action.h"
#include "days/day_list.h"
#include "days/day_marking.h"
#include "days/month_grid.h"

namespace tickwell::days {

/// What the calendar uses; all outlive it.
struct MonthCalendarParts {
    store::DayDatabase& dayDatabase;
    const HolidaySource& holidays;
    const FurtherSettings& further;
    DayList& list;
    const Clock& clock;
    MessageBoxes& boxes;
    Handlers& handlers;
    const QObject* window = nullptr;  ///< the owner of its message boxes
};

/// The calendar without its window: the month shown, the selected day, and the effect of clicks on both and
/// on the database. Its functions throw RunTimeError; then no mark was stored or lost.
class MonthCalendar {
public:
    explicit MonthCalendar(const MonthCalendarParts& parts) : m_parts(parts) {}

    /// Called after the answer to a question has been handled, which happens outside of the window's own
    /// handlers; there is one listener.
    void WhenAnswered(std::function<void()> answered) { m_whenAnswered = std::move(answered); }

    /// Sets the initial state: this month, today selected, panel closed, mode Normal, no row of the list
    /// chosen. Queries the database and writes nothing.
    void Load();

    const MonthGrid& Grid() const { return m_grid; }
    CalendarMode Mode() const { return m_mode; }
    QDate SelectedDate() const { return m_selected; }
    /// The month reached with the arrows: outside the supported years it differs from that of the grid.
    QDate ShownMonth() const { return m_shown; }

    bool IsPanelOpen() const { return m_isPanelOpen; }

    /// While days are marked, until the mode is Normal again, nothing but the help can be used.
    bool CanUse(CalendarAction action) const {
        return m_mode == CalendarMode::Normal || action == CalendarAction::ShowHelp;
    }

    /// Whether clicks on days are handled: not before the first month, nor while a click is being handled.
    bool IsReady() const { return m_isReady; }

    /// Whether a message or question of the calendar is open; nothing else may be done in the meantime.
    bool IsWaiting() const { return *m_isWaiting; }

    /// Shows a month of the years 1926 to 2100; for other years reports the limit and keeps the grid.
    void BuildMonth(int year, int month);

    /// Builds the grid's month again, with the same days pressed. Does nothing while days are marked, because
    /// the colours are the only copy of the new marks, or before there is a month.
    void Refresh();

    /// `cell`: 0 to 48; the names of the weekdays are ignored.
    void ClickCell(int cell);

    /// GoBy moves by that many months, to the last day if the month has no such day; GoTo selects a day.
    void GoBy(int months);
    void GoTo(QDate day);
    void GoToToday();

    /// Choosing Normal stores the marks of the shown month, all of them or none.
    void ChooseMode(CalendarMode mode);

    /// Asks which marks to delete, and deletes them.
    void DeleteMarks();

    void TogglePanel();
    void ListAnniversariesOfDay();

    /// After the book was changed: lists the day and searches the days with anniversaries again.
    void AnniversariesChanged();

    /// Whether days with anniversaries are still being searched, to mark them; GoOnSearchingDays must be
    /// called until this is false.
    bool IsSearchingDays() const { return m_daySearch.has_value(); }

    /// Searches for some milliseconds. Throws SqlError, which ends the search.
    void GoOnSearchingDays();

private:
    void Show(QDate month);
    void Tell(const QString& text);
    void SelectCell(int cell);
    void SearchAnniversaryDays();
    void PressMarkedCells();
    void Execute(const QStringList& statements);
    void DeleteAnswered(MessageAnswer answer, const MonthShape& month);

    MonthCalendarParts m_parts;
    MonthGrid m_grid;
    QDate m_shown;
    QDate m_selected;
    CalendarMode m_mode = CalendarMode::Normal;
    bool m_isPanelOpen = false;
    bool m_isReady = false;
    std::shared_ptr<bool> m_isWaiting =
        std::make_shared<bool>(false);  // boxes hold it weakly: they may outlive this object
    std::optional<AnniversaryDays> m_daySearch;
    std::function<void()> m_whenAnswered = [] {};
};

}  // namespace tickwell::days

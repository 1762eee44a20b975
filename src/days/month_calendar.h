// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/handlers.h"
#include "core/ports/clock.h"
#include "core/ports/message_boxes.h"
#include "days/day_list.h"
#include "days/day_marking.h"
#include "days/month_grid.h"

namespace tickwell {

inline constexpr int kMonthsInYear = 12;

/// What the calendar works with; all outlive it.
struct MonthCalendarParts {
    const std::unique_ptr<DayDatabase>& dayDatabase;  ///< null while it is closed
    DayList& list;
    const Clock& clock;
    MessageBoxes& boxes;
    Handlers& handlers;
    const QObject* window = nullptr;  ///< that its boxes belong to
};

/// The calendar without its window: which month is shown, which day is selected, what a click does, and what
/// is stored. Its functions throw RunTimeError; then no mark was stored or lost.
class MonthCalendar {
public:
    explicit MonthCalendar(const MonthCalendarParts& parts) : m_parts(parts) {}

    /// Called once an answer has been dealt with, which comes when no handler waits for it; one at most.
    void WhenAnswered(std::function<void()> answered) { m_whenAnswered = std::move(answered); }

    /// As it is when the window opens: this month, today selected, panel closed, mode Normal, no row of the
    /// list chosen. Asks the database and writes nothing.
    void Load();

    const MonthGrid& Grid() const { return m_grid; }
    CalendarMode Mode() const { return m_mode; }
    QDate SelectedDate() const { return m_selected; }

    /// The month that the arrows have come to: beyond the first and the last year it is not that of the grid.
    QDate ShownMonth() const { return m_shown; }

    bool IsPanelOpen() const { return m_isPanelOpen; }

    /// Clicks on days are handled. Not before the first month, nor while one is being handled.
    bool IsReady() const { return m_isReady; }

    /// A message or a question of the calendar's is open, and nothing else is to be done meanwhile.
    bool IsWaiting() const { return *m_isWaiting; }

    /// Shows a month of the years 1926 to 2100; for another one says so, and shows what it showed.
    void BuildMonth(int year, int month);

    /// `cell`: 0 to 48; nothing happens with the names of the weekdays.
    void ClickCell(int cell);

    /// Goes on by so many months, from one month's last days to the next one's last, or to today.
    void GoBy(int months);
    void GoToToday();

    /// Choosing Normal stores the marks of the shown month, all or none of them.
    void ChooseMode(CalendarMode mode);

    /// Asks which marks to take away, and takes them.
    void DeleteMarks();

    void TogglePanel();
    void ListAnniversariesOfDay();

private:
    void Show(QDate month);
    void Tell(const QString& text);
    void SelectCell(int cell);
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
        std::make_shared<bool>(false);  // boxes hold it weakly: they may outlive us
    std::function<void()> m_whenAnswered = [] {};
};

/// The panel's button says what it does next.
QString PanelCaption(bool isPanelOpen);

/// What cannot be used while days are marked: one comes back to Normal first.
inline constexpr std::array kOffWhileMarking{
    QStringView(u"Command1"),  QStringView(u"Command2"),    QStringView(u"Command3"),
    QStringView(u"Command4"),  QStringView(u"Command5"),    QStringView(u"Command6"),
    QStringView(u"Command9"),  QStringView(u"Command10"),   QStringView(u"Command11"),
    QStringView(u"Command12"), QStringView(u"Command7(2)"),
};

}  // namespace tickwell

// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/month_calendar.h"

#include <QScopeGuard>
#include <utility>

#include "core/errors.h"
#include "core/integer_text.h"
#include "store/day_transaction.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstYear = 1926;
constexpr int kLastYear = 2100;

// The valid years of a date converted from text.
constexpr int kFirstTextYear = 100;
constexpr int kLastTextYear = 9999;

/// Outside the supported years the arrows still change the month, but the grid keeps its days, so that a day
/// may not exist in the month.
QDate DateOf(QDate month, const QString& caption) {
    const QDate date(month.year(), month.month(), IntegerOf(caption));
    if (!date.isValid() || date.year() < kFirstTextYear || date.year() > kLastTextYear) {
        throw TypeMismatchError();
    }
    return date;
}

}  // namespace

QString PanelCaption(bool isPanelOpen) {
    return isPanelOpen ? u"←閉"_s : u"開→"_s;
}

void MonthCalendar::Load() {
    m_isReady = false;
    m_isPanelOpen = true;
    m_mode = CalendarMode::Normal;
    m_selected = m_parts.clock.Now().date();
    m_parts.list.ChooseNewRow();
    ListAnniversariesOfDay();
    GoToToday();
    TogglePanel();
}

void MonthCalendar::BuildMonth(int year, int month) {
    if (year > kLastYear) {
        Tell(u"これ以後の年は表示できません。"_s);
        return;
    }
    if (year < kFirstYear) {
        Tell(u"これ以前の年は表示できません。"_s);
        return;
    }
    const MonthShape shape = ShapeOf(QDate(year, month, 1));
    // Read first: if the database fails, the grid is unchanged and still matches the month that its marks are
    // stored for.
    const MonthRows rows = ReadMonth(m_parts.dayDatabase, m_parts.holidays, shape);
    m_isReady = false;
    FillGrid(m_grid, shape, rows, m_parts.clock.Now().date(), m_parts.further);
    m_isReady = true;
    SearchAnniversaryDays();
}

/// Restarts the search. Dots in the grid stay until it is complete; FillGrid has removed those of another
/// month.
void MonthCalendar::SearchAnniversaryDays() {
    m_daySearch.reset();
    if (m_parts.further.corrections.showsToday && m_grid.first.isValid()) {
        m_daySearch.emplace(m_parts.dayDatabase, ShapeOf(m_grid.first));
        GoOnSearchingDays();
    }
}

void MonthCalendar::GoOnSearchingDays() {
    AnniversaryDays search = std::move(*m_daySearch);
    m_daySearch.reset();
    if (search.Step()) {
        PutDots(m_grid, search.Days());
    } else {
        m_daySearch = std::move(search);
    }
}

void MonthCalendar::Refresh() {
    if (m_mode != CalendarMode::Normal || !m_grid.first.isValid()) {
        return;
    }
    const MonthGrid before = m_grid;
    BuildMonth(m_grid.first.year(), m_grid.first.month());
    for (int cell = kFirstDayCell; cell < kGridCells; ++cell) {
        m_grid.At(cell).isPressed = before.At(cell).isPressed;
    }
}

void MonthCalendar::Show(QDate month) {
    const QDate before = std::exchange(m_shown, month);
    try {
        BuildMonth(month.year(), month.month());
    } catch (const RunTimeError&) {
        m_shown = before;
        throw;
    }
}

void MonthCalendar::GoBy(int months) {
    Show(m_shown.addMonths(months));
}

void MonthCalendar::GoToToday() {
    const QDate today = m_parts.clock.Now().date();
    m_selected = today;
    Show(today);
    ListAnniversariesOfDay();
}

void MonthCalendar::GoTo(QDate day) {
    Show(day);
    const MonthShape month = ShapeOf(day);
    if (m_grid.first == month.first) {  // not outside the supported years
        SelectCell(month.CellOf(day.day()));
    }
}

void MonthCalendar::ClickCell(int cell) {
    if (!m_isReady || !IsDayCell(cell)) {
        return;
    }
    m_isReady = false;
    const auto readyAgain = qScopeGuard([this] { m_isReady = true; });
    if (m_mode == CalendarMode::Normal) {
        SelectCell(cell);
        return;
    }
    MonthCell& clicked = m_grid.At(cell);
    clicked.color = ToggledColor(m_mode, clicked.color);
    clicked.isPressed = clicked.color == ColorOf(m_mode);
}

void MonthCalendar::SelectCell(int cell) {
    for (int each = kFirstDayCell; each < kGridCells; ++each) {
        m_grid.At(each).isPressed = each == cell;
    }
    m_selected = DateOf(m_shown, m_grid.At(cell).caption);
    ListAnniversariesOfDay();
}

void MonthCalendar::ChooseMode(CalendarMode mode) {
    m_mode = mode;
    PressMarkedCells();
    if (mode == CalendarMode::Normal) {
        Execute(MonthStatements(m_grid, ShapeOf(m_shown)));
    }
}

/// Presses the cells that have the mode's colour; none in mode Normal.
void MonthCalendar::PressMarkedCells() {
    for (int cell = kFirstDayCell; cell < kGridCells; ++cell) {
        MonthCell& each = m_grid.At(cell);
        each.isPressed = m_mode != CalendarMode::Normal && each.color == ColorOf(m_mode);
    }
}

void MonthCalendar::Execute(const QStringList& statements) {
    store::DayTransaction transaction(m_parts.dayDatabase);
    for (const QString& sql : statements) {
        m_parts.dayDatabase.Execute(sql);
    }
    transaction.Commit();
}

void MonthCalendar::DeleteMarks() {
    *m_isWaiting = true;
    const MonthShape month = ShapeOf(m_shown);
    const auto answered = [this, month, waiting = std::weak_ptr(m_isWaiting)](MessageAnswer answer) {
        const auto stillThere = waiting.lock();
        if (!stillThere) {
            return;
        }
        *stillThere = false;
        if (answer == MessageAnswer::Cancel && !m_parts.dayDatabase.IsOpen()) {
            return;  // nothing to delete; the program may be closing, which cancels open boxes
        }
        m_parts.handlers.Run([this, answer, month] { DeleteAnswered(answer, month); }, m_parts.window);
        m_whenAnswered();
    };
    m_parts.boxes.Choose(m_parts.window,
                         {MessageIcon::Exclamation, u"ﾃﾞｰﾀ削除"_s, u"今月までのデーターも削除しますか？"_s},
                         answered);
}

void MonthCalendar::DeleteAnswered(MessageAnswer answer, const MonthShape& month) {
    if (answer == MessageAnswer::Yes) {
        Execute(DeletionsUpTo(month.last));
    } else if (answer == MessageAnswer::No) {
        Execute(MonthDeletions(month));
    }
    BuildMonth(m_shown.year(), m_shown.month());
}

void MonthCalendar::TogglePanel() {
    m_isPanelOpen = !m_isPanelOpen;
    if (m_isPanelOpen) {
        ListAnniversariesOfDay();
    }
}

void MonthCalendar::ListAnniversariesOfDay() {
    m_parts.list.ListDay(m_parts.dayDatabase, m_selected, m_isPanelOpen);
}

void MonthCalendar::AnniversariesChanged() {
    ListAnniversariesOfDay();
    SearchAnniversaryDays();
}

void MonthCalendar::Tell(const QString& text) {
    *m_isWaiting = true;
    m_parts.boxes.Show(m_parts.window, {MessageIcon::Exclamation, u"ｶﾚﾝﾀﾞｰ"_s, text},
                       [waiting = std::weak_ptr(m_isWaiting)] {
                           if (const auto stillThere = waiting.lock()) {
                               *stillThere = false;
                           }
                       });
}

}  // namespace tickwell::days

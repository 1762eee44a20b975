// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "days/month_calendar.h"
#include "days/table_holidays.h"
#include "platform/time/virtual_time.h"
#include "store/day_store.h"
#include "support/fake_message_boxes.h"

namespace tickwell::days {

/// A calendar with its own day database, on a day that the test chooses.
struct CalendarBench {
    explicit CalendarBench(QDate today = QDate(1998, 10, 3)) : time(QDateTime(today, QTime(9, 0))) {}

    /// The stored marks, "Holiday 1998-10-05" and so on, in the order of the tables and of the rows.
    QStringList Marks() const {
        return store.Raw(
            "SELECT 'Holiday ' || \"Date\" FROM Holiday UNION ALL SELECT 'Halfday ' || \"Date\" FROM Halfday "
            "UNION ALL SELECT 'Usuallyday ' || \"Date\" FROM Usuallyday");
    }
    void NoHolidays() const { store.Raw("DELETE FROM Syukuzitu"); }

    /// The cell of a day of the month shown in the grid.
    int CellOf(int day) const { return ShapeOf(calendar.Grid().first).CellOf(day); }
    /// The visible days whose cells are pressed, in ascending order. While marking, hidden cells can be
    /// pressed too.
    QList<int> PressedInGrid() const {
        QList<int> days;
        for (int cell = 7; cell < kGridCells; ++cell) {
            const MonthCell& each = calendar.Grid().At(cell);
            if (each.isVisible && each.isPressed) {
                days.append(each.caption.toInt());
            }
        }
        return days;
    }
    const MonthCell& Day(int day) const { return calendar.Grid().At(CellOf(day)); }
    void ClickDays(const QList<int>& days) {
        for (const int day : days) {
            calendar.ClickCell(CellOf(day));
        }
    }

    store::DayStore store;
    store::DayDatabase dayDatabase{store.Path()};
    TableHolidays holidays{dayDatabase};
    FurtherSettings further;
    DayList list;
    platform::VirtualTime time;
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    MonthCalendar calendar{{.dayDatabase = dayDatabase,
                            .holidays = holidays,
                            .further = further,
                            .list = list,
                            .clock = time,
                            .boxes = boxes,
                            .handlers = handlers}};
};

}  // namespace tickwell::days

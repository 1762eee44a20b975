// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <array>

#include "days/day_cell.h"

namespace tickwell::days {

/// The grid on the screen: a row of weekdays and six rows of days. Only one day is in the tab order; the
/// arrow keys move to the others, which can also be clicked.
class MonthView : public QWidget {
    Q_OBJECT

public:
    explicit MonthView(QWidget* parent);

    /// `cell`: that of a day, 7 to 48.
    DayCell& Cell(int cell) const { return *m_cells.at(static_cast<std::size_t>(cell - kFirstDayCell)); }

    void Show(const MonthGrid& grid);

    /// Makes room for the second lines of all cells alike.
    void SetUnder(UnderDays under);

    /// Moves the keyboard focus to this day of the month, or to its last one if that is earlier; to none
    /// while no month is shown.
    void FocusDay(int day);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ColorWeekdays();
    void TakeTab(int day);
    int FocusedDay() const;
    /// False if the calendar was opened on a day in a year that it does not show.
    bool HasMonth() const { return m_month.first.isValid(); }

    std::array<QLabel*, kGridColumns> m_weekdays{};  // owned, like the cells
    std::array<DayCell*, kGridCells - kFirstDayCell> m_cells{};
    MonthShape m_month;
    int m_day = 1;  // the day in the tab order
};

}  // namespace tickwell::days

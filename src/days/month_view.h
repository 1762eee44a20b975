// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <array>

#include "days/day_cell.h"

namespace tickwell {

/// The grid on the screen: a row of weekdays, six rows of days. Tab comes to one day only, and the arrows go
/// on from there; the others are reached by the mouse as well.
class MonthView : public QWidget {
    Q_OBJECT

public:
    explicit MonthView(QWidget* parent);

    /// `cell`: that of a day, 7 to 48.
    DayCell& Cell(int cell) const { return *m_cells.at(static_cast<std::size_t>(cell - kFirstDayCell)); }

    void Show(const MonthGrid& grid);

    /// Gives the keys to this day of the month, or to its last one; to none while no month is shown.
    void FocusDay(int day);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ColorWeekdays();
    void TakeTab(int day);
    int FocusedDay() const;
    /// Not where the calendar was opened on a day of a year that it does not show.
    bool HasMonth() const { return m_month.first.isValid(); }

    std::array<QLabel*, kGridColumns> m_weekdays{};  // owned, as the cells are
    std::array<DayCell*, kGridCells - kFirstDayCell> m_cells{};
    MonthShape m_month;
    int m_day = 1;  // that Tab comes to
};

}  // namespace tickwell

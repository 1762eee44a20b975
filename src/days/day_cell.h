// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPushButton>

#include "days/month_grid.h"

namespace tickwell::days {

/// A day of the calendar: a button that can stay pressed. It shows its MonthCell; a click changes nothing
/// until the next Show.
class DayCell : public QPushButton {
    Q_OBJECT

public:
    explicit DayCell(QWidget* parent);

    /// `spokenName`: for screen readers.
    void Show(const MonthCell& cell, const QString& spokenName);

    /// Reserves room for a second line of this kind, whether or not the MonthCell has one.
    void SetUnder(UnderDays under);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QFont SmallFont() const;
    void PaintMarks(QPainter& painter);

    MonthCell m_cell;
    UnderDays m_under = UnderDays::Nothing;
};

}  // namespace tickwell::days

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

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    DayColor m_color = DayColor::Black;
};

}  // namespace tickwell::days

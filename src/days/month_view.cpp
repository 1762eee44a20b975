// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/month_view.h"

#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <algorithm>

#include "controls/control_making.h"
#include "days/day_marking.h"
#include "days/day_shade.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

QString NameOf(int cell) {
    return u"Check1(%1)"_s.arg(cell);
}

/// The number of days that an arrow key moves; 0 for other keys.
int DaysOf(int key) {
    switch (key) {
        case Qt::Key_Left:
            return -1;
        case Qt::Key_Right:
            return 1;
        case Qt::Key_Up:
            return -kGridColumns;
        case Qt::Key_Down:
            return kGridColumns;
        default:
            return 0;
    }
}

}  // namespace

MonthView::MonthView(QWidget* parent) : QWidget(parent) {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    const MonthGrid empty;
    for (int column = 0; column < kGridColumns; ++column) {
        auto* label = controls::Named(new QLabel(empty.At(column).caption, this), NameOf(column),
                                      empty.At(column).caption + u"曜日");
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
        layout->addWidget(label, 0, column);
        m_weekdays.at(static_cast<std::size_t>(column)) = label;
    }
    for (int cell = kFirstDayCell; cell < kGridCells; ++cell) {
        auto* button = controls::Named(new DayCell(this), NameOf(cell));
        button->installEventFilter(this);
        layout->addWidget(button, cell / kGridColumns, cell % kGridColumns);
        m_cells.at(static_cast<std::size_t>(cell - kFirstDayCell)) = button;
    }
    ColorWeekdays();
}

void MonthView::Show(const MonthGrid& grid) {
    const int focused = FocusedDay();
    m_month = ShapeOf(grid.first);
    if (focused > 0) {
        FocusDay(focused);  // before its old cell is hidden, which would move the focus elsewhere
    } else {
        TakeTab(m_day);
    }
    for (int cell = kFirstDayCell; cell < kGridCells; ++cell) {
        Cell(cell).Show(grid.At(cell), SpokenName(grid, cell));
    }
}

void MonthView::SetUnder(UnderDays under) {
    for (DayCell* cell : m_cells) {
        cell->SetUnder(under);
    }
}

void MonthView::FocusDay(int day) {
    TakeTab(day);
    if (!HasMonth()) {
        return;  // its buttons show no days
    }
    DayCell& cell = Cell(m_month.CellOf(m_day));
    cell.setVisible(true);
    cell.setFocus(Qt::OtherFocusReason);
}

void MonthView::TakeTab(int day) {
    m_day = HasMonth() ? std::min(day, m_month.Days()) : day;
    for (int cell = kFirstDayCell; cell < kGridCells; ++cell) {
        Cell(cell).setFocusPolicy(cell == m_month.CellOf(m_day) ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

/// 0 if no day has the keyboard focus.
int MonthView::FocusedDay() const {
    const bool isHere = std::find(m_cells.begin(), m_cells.end(), window()->focusWidget()) != m_cells.end();
    return isHere ? m_day : 0;
}

bool MonthView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && HasMonth()) {
        const auto at = std::find(m_cells.begin(), m_cells.end(), watched);
        const int cell = static_cast<int>(at - m_cells.begin()) + kFirstDayCell;
        TakeTab(cell - m_month.CellOf(0));
    }
    return QWidget::eventFilter(watched, event);
}

void MonthView::keyPressEvent(QKeyEvent* event) {
    const int days = DaysOf(event->key());
    if (days == 0 || FocusedDay() == 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    const int day = m_day + days;
    if (day >= 1 && day <= m_month.Days()) {
        FocusDay(day);
    }
}

void MonthView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        ColorWeekdays();
    }
}

void MonthView::ColorWeekdays() {
    const MonthGrid empty;
    for (int column = 0; column < kGridColumns; ++column) {
        QLabel* label = m_weekdays.at(static_cast<std::size_t>(column));
        QPalette colors = palette();
        colors.setColor(QPalette::WindowText, ShadeOf(empty.At(column).color, palette()));
        label->setPalette(colors);
    }
}

}  // namespace tickwell::days

// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/row_table.h"

#include <QHeaderView>
#include <algorithm>

namespace tickwell::days {

namespace {

constexpr int kMargin = 2;  // pixels above and below the text

}  // namespace

RowTable::RowTable(QWidget* parent) : QTableView(parent) {
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    FitRows();
}

void RowTable::FitRows() {
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    const int height = std::max(fontMetrics().height(), icon) + 2 * kMargin;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
}

QModelIndex RowTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const int rows = model()->rowCount();
    const QModelIndex current = currentIndex();
    switch (action) {
        case MoveHome:
            return rows > 0 ? model()->index(0, 0) : current;
        case MoveEnd:
            return rows > 0 ? model()->index(rows - 1, 0) : current;
        case MoveLeft:
        case MoveRight:
            return current;
        default:
            return QTableView::moveCursor(action, modifiers);
    }
}

}  // namespace tickwell::days

// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/row_announcing.h"

#include <QAccessible>
#include <QTableView>

namespace tickwell::controls {

namespace {

void AnnounceNow(QTableView& table) {
    const QModelIndex current = table.currentIndex();
    if (!QAccessible::isActive() || !table.hasFocus() || !current.isValid()) {
        return;
    }
    QAccessibleInterface* view = QAccessible::queryAccessibleInterface(&table);
    QAccessibleTableInterface* cells = view == nullptr ? nullptr : view->tableInterface();
    QAccessibleInterface* cell = cells == nullptr ? nullptr : cells->cellAt(current.row(), current.column());
    if (cell != nullptr) {
        QAccessibleEvent focus(cell, QAccessible::Focus);
        QAccessible::updateAccessibility(&focus);
    }
}

}  // namespace

void AnnounceCurrentRow(QTableView& table) {
    QMetaObject::invokeMethod(
        &table, [&table] { AnnounceNow(table); }, Qt::QueuedConnection);
}

}  // namespace tickwell::controls

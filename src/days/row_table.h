// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableView>

namespace tickwell::days {

/// A list with columns and single selection. A QTreeView needs 40 bytes and some time per row of its model;
/// this class needs 8 bytes and shows a million rows instantly.
class RowTable : public QTableView {
    Q_OBJECT

public:
    explicit RowTable(QWidget* parent = nullptr);

    /// Makes the rows high enough for the font and the icons.
    void FitRows();

protected:
    /// Home and End go to the first and last row; left and right are ignored.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
};

}  // namespace tickwell::days

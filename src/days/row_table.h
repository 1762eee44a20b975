// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableView>

namespace tickwell {

/// A list with columns, one row selected at most. A QTreeView would need 40 bytes and some time for each row
/// of its model; this needs 8 bytes, and shows a million rows at once.
class RowTable : public QTableView {
    Q_OBJECT

public:
    explicit RowTable(QWidget* parent = nullptr);

    /// Makes the rows as high as the font and the icons need.
    void FitRows();

protected:
    /// Home and End go to the first and the last row; left and right go nowhere.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
};

}  // namespace tickwell

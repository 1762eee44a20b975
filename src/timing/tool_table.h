// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableWidget>

#include "timing/shown_row.h"

namespace tickwell::timing {

/// What a ToolTable is like.
struct ToolTableShape {
    QStringList titles;
    int width = 0;     ///< at least, in ems
    int rowsSeen = 4;  ///< at least, without scrolling
};

/// The list of the windows of timers and alarms. One row can be selected; the first column takes the room
/// that the others leave.
class ToolTable : public QTableWidget {
    Q_OBJECT

public:
    ToolTable(const ToolTableShape& shape, QWidget* parent);

    /// Writes only what has changed, because a screen reader reads each change. If rows came or went, the
    /// timer or alarm that was selected remains so.
    void ShowRows(const QList<ShownRow>& rows);

    /// -1 if no row is selected. It follows currentCellChanged(); itemSelectionChanged() is emitted before.
    qint64 SelectedId() const;

    /// If it is gone, the row that took its place is selected.
    void SelectId(qint64 id);

protected:
    /// Screen readers then read the current row, not only the name of the list.
    void focusInEvent(QFocusEvent* event) override;

private:
    void SetSizes(const ToolTableShape& shape);

    QList<ShownRow> m_rows;
};

}  // namespace tickwell::timing

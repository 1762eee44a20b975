// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QCache>
#include <QVariant>

#include "days/listed_rows.h"

namespace tickwell {

/// Rows of the day list for a view. Only rows that the view asks for are read, and the last of them kept.
class DayListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum class Columns { All, Name };

    /// `icon`: the small picture before each name, QIcon or QPixmap.
    DayListModel(QVariant icon, Columns columns, QObject* parent);

    /// Shows other rows; a view's selection is gone.
    void SetRows(const ListedRows& rows);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Looks at a limited number of rows: what a user types to go to a name must not read a whole large list.
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override;

private:
    const DayListRow& RowAt(int row) const;

    QVariant m_icon;
    int m_columns;
    ListedRows m_rows;
    mutable QCache<int, DayListRow> m_read;
    mutable bool m_hasWarned = false;
};

}  // namespace tickwell

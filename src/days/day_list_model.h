// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QCache>
#include <QVariant>

#include "days/listed_rows.h"

namespace tickwell::days {

/// The model of the day list. Reads only the rows that the view requests, and caches those read
/// most recently.
class DayListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum class Columns { All, Name };

    /// `icon`: shown before each name; a QIcon or QPixmap.
    DayListModel(QVariant icon, Columns columns, QObject* parent);

    /// Replaces the rows; a view's selection is lost.
    void SetRows(const ListedRows& rows);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Checks a limited number of rows: a name typed by the user must not read all rows of a large list.
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

}  // namespace tickwell::days

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QVariant>

#include "days/day_list_row.h"

namespace tickwell {

/// Rows of the day list for a view. It hands out what is in sight and makes nothing for the rest: a list of
/// 100 000 finds costs no more than one of ten.
class DayListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// `icon`: the small picture before each name, QIcon or QPixmap.
    explicit DayListModel(QVariant icon, QObject* parent);

    /// Shows other rows; a view's selection is gone.
    void SetRows(const QList<DayListRow>& rows);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QVariant m_icon;
    QList<DayListRow> m_rows;
};

}  // namespace tickwell

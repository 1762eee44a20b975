// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_list_model.h"

#include <array>

namespace tickwell {

namespace {

struct Column {
    QStringView caption;
    QString DayListRow::*text = nullptr;
};

constexpr std::array kColumns{
    Column{u"記念日", &DayListRow::name}, Column{u"年", &DayListRow::year}, Column{u"月", &DayListRow::month},
    Column{u"日", &DayListRow::day},      Column{u"週", &DayListRow::week},
};

const Column& ColumnAt(int column) {
    return kColumns.at(static_cast<std::size_t>(column));
}

}  // namespace

DayListModel::DayListModel(QVariant icon, QObject* parent)
    : QAbstractTableModel(parent), m_icon(std::move(icon)) {}

void DayListModel::SetRows(const QList<DayListRow>& rows) {
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

int DayListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int DayListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(kColumns.size());
}

QVariant DayListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return m_rows.at(index.row()).*ColumnAt(index.column()).text;
    }
    if (role == Qt::DecorationRole && index.column() == 0) {
        return m_icon;
    }
    return {};
}

QVariant DayListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
        return ColumnAt(section).caption.toString();
    }
    return {};
}

}  // namespace tickwell

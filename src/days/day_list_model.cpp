// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_list_model.h"

#include <array>
#include <utility>

#include "core/errors.h"
#include "days/log.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

struct Column {
    QStringView caption;
    QString DayListRow::*text = nullptr;
};

constexpr int kMostRead = 500;      // cached rows, several screens
constexpr int kMostMatched = 2000;  // rows checked for a name that the user types

constexpr std::array kColumns{
    Column{u"記念日", &DayListRow::name}, Column{u"年", &DayListRow::year}, Column{u"月", &DayListRow::month},
    Column{u"日", &DayListRow::day},      Column{u"週", &DayListRow::week},
};

const Column& ColumnAt(int column) {
    return kColumns.at(static_cast<std::size_t>(column));
}

}  // namespace

DayListModel::DayListModel(QVariant icon, Columns columns, QObject* parent)
    : QAbstractTableModel(parent),
      m_icon(std::move(icon)),
      m_columns(columns == Columns::All ? static_cast<int>(kColumns.size()) : 1),
      m_read(kMostRead) {}

void DayListModel::SetRows(const ListedRows& rows) {
    beginResetModel();
    m_rows = rows;
    m_read.clear();
    m_hasWarned = false;
    endResetModel();
}

int DayListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows.Count();
}

int DayListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_columns;
}

QVariant DayListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return RowAt(index.row()).*ColumnAt(index.column()).text;
    }
    if (role == Qt::DecorationRole && index.column() == 0) {
        return m_icon;
    }
    return {};
}

/// A row that cannot be read, because another program changed it or the database is temporarily closed, shows
/// a text that states this.
const DayListRow& DayListModel::RowAt(int row) const {
    if (const DayListRow* read = m_read.object(row)) {
        return *read;
    }
    static const DayListRow kUnreadable{u"（読み込めません）"_s, {}, {}, {}, {}};
    try {
        if (std::optional<DayListRow> read = m_rows.Read(row)) {
            m_read.insert(row, new DayListRow(std::move(*read)));
            return *m_read.object(row);
        }
    } catch (const RunTimeError& error) {
        if (!std::exchange(m_hasWarned, true)) {
            qCWarning(DaysLog).noquote() << "a row of the list cannot be read:" << error.Detail();
        }
    }
    return kUnreadable;
}

QModelIndexList DayListModel::match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                    Qt::MatchFlags flags) const {
    const QString text = value.toString();
    if (m_rows.Count() <= kMostMatched || !flags.testFlag(Qt::MatchStartsWith)) {
        return QAbstractTableModel::match(start, role, value, hits, flags);
    }
    for (int i = 0; i < kMostMatched; ++i) {
        const QModelIndex each = index((start.row() + i) % m_rows.Count(), 0);
        if (each.data(role).toString().startsWith(text, Qt::CaseInsensitive)) {
            return {each};
        }
    }
    return {};
}

QVariant DayListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
        return ColumnAt(section).caption.toString();
    }
    return {};
}

}  // namespace tickwell::days

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>
#include <memory>
#include <variant>
#include <vector>

#include "store/day_schema.h"

namespace tickwell::store {

class SqliteStatement;

using ResultColumns = std::vector<SchemaColumn>;

/// One row of a result. Its values are read by column name, ignoring case. Throws RunTimeError for a column
/// that was not selected or is of another type.
class ResultRow {
public:
    using Value = std::variant<qint32, QString, QDate>;

    /// `values`: one per element of `columns`.
    ResultRow(std::shared_ptr<const ResultColumns> columns, std::vector<Value> values, bool isExact = true);

    const QString& Text(QStringView column) const;
    qint32 Integer(QStringView column) const;
    QDate Date(QStringView column) const;  ///< invalid if another program stored something else there

    /// False if a text differs from the stored one: bytes that are not UTF-8 have become U+FFFD.
    bool IsExact() const { return m_isExact; }

private:
    template <typename Type>
    const Type& Get(QStringView column) const;

    std::shared_ptr<const ResultColumns> m_columns;
    std::vector<Value> m_values;
    bool m_isExact;
};

/// The value in a column of the current row of `statement`. Throws RunTimeError for a value that does not fit
/// `type`, which only another program can have stored.
ResultRow::Value StoredValueAt(const SqliteStatement& statement, int column, ColumnType type);

/// The result of a query: a snapshot of all its rows, in the order of insertion.
class ResultSet {
public:
    explicit ResultSet(std::vector<ResultRow> rows) : m_rows(std::move(rows)) {}

    int Count() const { return static_cast<int>(m_rows.size()); }

    /// `row`: 0 to Count() - 1.
    const ResultRow& Row(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }

    // For range-based "for", which needs these names.
    auto begin() const { return m_rows.begin(); }
    auto end() const { return m_rows.end(); }

private:
    std::vector<ResultRow> m_rows;
};

}  // namespace tickwell::store

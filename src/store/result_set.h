// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>
#include <memory>
#include <variant>
#include <vector>

#include "store/day_schema.h"

namespace tickwell {

class SqliteStatement;

using ResultColumns = std::vector<SchemaColumn>;

/// One row of an answer. Its values are read by the name of their column, whatever its case; a column that
/// was not asked for, or is of another type, throws RunTimeError.
class ResultRow {
public:
    using Value = std::variant<qint32, QString, QDate>;

    /// `values`: one for each of `columns`.
    ResultRow(std::shared_ptr<const ResultColumns> columns, std::vector<Value> values, bool isExact = true);

    const QString& Text(QStringView column) const;
    qint32 Integer(QStringView column) const;
    QDate Date(QStringView column) const;  ///< invalid if another program stored no date there

    /// False if a text is not what is stored: bytes that are no UTF-8 have become U+FFFD.
    bool IsExact() const { return m_isExact; }

private:
    template <typename Type>
    const Type& Get(QStringView column) const;

    std::shared_ptr<const ResultColumns> m_columns;
    std::vector<Value> m_values;
    bool m_isExact;
};

/// The value in a column of the row that `statement` stands on. Throws RunTimeError for one that another
/// program stored and that is none of `type`.
ResultRow::Value StoredValueAt(const SqliteStatement& statement, int column, ColumnType type);

/// The answer to a query: all its rows as they were at that moment, in the order in which they were stored.
class ResultSet {
public:
    explicit ResultSet(std::vector<ResultRow> rows) : m_rows(std::move(rows)) {}

    int Count() const { return static_cast<int>(m_rows.size()); }

    /// `row`: 0 to Count() - 1.
    const ResultRow& Row(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }

    // For "for": the language asks for these names.
    auto begin() const { return m_rows.begin(); }
    auto end() const { return m_rows.end(); }

private:
    std::vector<ResultRow> m_rows;
};

}  // namespace tickwell

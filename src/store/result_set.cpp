// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/result_set.h"

#include "core/errors.h"
#include "store/sql_error.h"
#include "store/sqlite_statement.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kDateLength = 10;  // of "1998-10-03"

}  // namespace

ResultRow::ResultRow(std::shared_ptr<const ResultColumns> columns, std::vector<Value> values, bool isExact)
    : m_columns(std::move(columns)), m_values(std::move(values)), m_isExact(isExact) {}

const QString& ResultRow::Text(QStringView column) const {
    return Get<QString>(column);
}

qint32 ResultRow::Integer(QStringView column) const {
    return Get<qint32>(column);
}

QDate ResultRow::Date(QStringView column) const {
    return Get<QDate>(column);
}

template <typename Type>
const Type& ResultRow::Get(QStringView column) const {
    const auto index = FindColumn(*m_columns, column);
    const Type* value = index ? std::get_if<Type>(&m_values[*index]) : nullptr;
    if (value == nullptr) {
        throw RunTimeError(u"検索結果に列 %1 がありません。"_s.arg(column));
    }
    return *value;
}

ResultRow::Value StoredValueAt(const SqliteStatement& statement, int column, ColumnType type) {
    if (type == ColumnType::Integer) {
        const qint64 number = statement.Integer(column);
        if (number != static_cast<qint32>(number)) {
            throw ForeignValueError();
        }
        return static_cast<qint32>(number);
    }
    const QString text = statement.Text(column);
    if (type == ColumnType::Text) {
        return text;
    }
    return text.size() == kDateLength ? QDate::fromString(text, Qt::ISODate) : QDate();
}

}  // namespace tickwell::store

// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/result_set.h"

#include "core/errors.h"

namespace tickwell {

using namespace Qt::StringLiterals;

ResultRow::ResultRow(std::shared_ptr<const ResultColumns> columns, std::vector<Value> values)
    : m_columns(std::move(columns)), m_values(std::move(values)) {}

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

}  // namespace tickwell

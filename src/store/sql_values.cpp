// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/sql_values.h"

#include "store/sql_lexer.h"

namespace tickwell::store {

std::optional<BoundValue> ComparedValue(ColumnType type, const SqlLiteral& literal) {
    if (const auto* number = std::get_if<qint32>(&literal);
        number != nullptr && type == ColumnType::Integer) {
        return *number;
    }
    if (const auto* text = std::get_if<QString>(&literal); text != nullptr && type == ColumnType::Text) {
        return *text;
    }
    if (const auto* date = std::get_if<QDate>(&literal); date != nullptr && type == ColumnType::Date) {
        return date->toString(Qt::ISODate);
    }
    return std::nullopt;
}

std::optional<BoundValue> StoredValue(ColumnType type, const SqlLiteral& literal) {
    if (const auto* text = std::get_if<QString>(&literal); text != nullptr && type == ColumnType::Integer) {
        const auto number = ExactInteger(*text);
        return number ? std::optional<BoundValue>(*number) : std::nullopt;
    }
    return ComparedValue(type, literal);
}

}  // namespace tickwell::store

// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/sql_model.h"

#include <algorithm>

#include "store/day_schema.h"

namespace tickwell {

namespace {

const store::SchemaTable& TableNamed(const QString& name) {
    return store::SchemaTables()[TableIndex(name)];
}

std::size_t ColumnIndex(const store::SchemaTable& table, const QString& name) {
    return store::FindColumn(table.columns, name).value();
}

template <typename Value>
bool Compares(store::SqlOperator op, const Value& left, const Value& right) {
    switch (op) {
        case store::SqlOperator::Equal:
            return left == right;
        case store::SqlOperator::NotEqual:
            return left != right;
        case store::SqlOperator::LessOrEqual:
            return left <= right;
        case store::SqlOperator::GreaterOrEqual:
            return left >= right;
        case store::SqlOperator::Less:
            return left < right;
        case store::SqlOperator::Greater:
            return left > right;
    }
    return false;
}

bool Compares(store::SqlOperator op, const store::SqlLiteral& left, const store::SqlLiteral& right) {
    if (const auto* number = std::get_if<qint32>(&left)) {
        return Compares(op, *number, std::get<qint32>(right));
    }
    if (const auto* date = std::get_if<QDate>(&left)) {
        return Compares(op, *date, std::get<QDate>(right));
    }
    return Compares(op, std::get<QString>(left), std::get<QString>(right));
}

/// Whether a row satisfies a condition.
struct Fulfils {
    const store::SchemaTable& table;
    const SqlModel::Row& row;

    bool operator()(const store::Comparison& comparison) const {
        return Compares(comparison.op, row.at(ColumnIndex(table, comparison.column)), comparison.value);
    }
    bool operator()(const store::Between& between) const {
        const store::SqlLiteral& value = row.at(ColumnIndex(table, between.column));
        return Compares(store::SqlOperator::GreaterOrEqual, value, between.first) &&
               Compares(store::SqlOperator::LessOrEqual, value, between.last);
    }
    bool operator()(const store::AllOf& all) const {
        return std::all_of(all.parts.begin(), all.parts.end(),
                           [this](const store::Condition& part) { return std::visit(*this, part); });
    }
    bool operator()(const store::AnyOf& any) const {
        return std::any_of(any.parts.begin(), any.parts.end(),
                           [this](const store::Condition& part) { return std::visit(*this, part); });
    }
};

/// The value as the column stores it: numbers may be given in quotes.
store::SqlLiteral Stored(store::ColumnType type, const store::SqlLiteral& literal) {
    const auto* text = std::get_if<QString>(&literal);
    return type == store::ColumnType::Integer && text != nullptr ? store::SqlLiteral(text->toInt()) : literal;
}

}  // namespace

std::size_t TableIndex(const QString& name) {
    return static_cast<std::size_t>(store::FindTable(name) - store::SchemaTables().data());
}

std::vector<SqlModel::Row> SqlModel::Answer(const store::SelectStatement& select) const {
    const store::SchemaTable& table = TableNamed(select.table);
    std::vector<Row> answer;
    for (const Row& row : m_tables.at(TableIndex(select.table))) {
        if (!std::visit(Fulfils{table, row}, select.where)) {
            continue;
        }
        Row asked = select.columns.empty() ? row : Row();
        for (const store::QualifiedColumn& name : select.columns) {
            asked.push_back(row.at(ColumnIndex(table, name.column)));
        }
        answer.push_back(std::move(asked));
    }
    return answer;
}

std::optional<int> SqlModel::Change(const store::SqlStatement& statement) {
    if (const auto* insert = std::get_if<store::InsertStatement>(&statement)) {
        return Change(*insert);
    }
    if (const auto* update = std::get_if<store::UpdateStatement>(&statement)) {
        return Change(*update);
    }
    return Change(std::get<store::DeleteStatement>(statement));
}

std::optional<int> SqlModel::Change(const store::InsertStatement& insert) {
    const store::SchemaTable& table = TableNamed(insert.table);
    if (insert.values.size() < table.columns.size()) {
        return std::nullopt;
    }
    Row row(table.columns.size());
    for (std::size_t i = 0; i < insert.values.size(); ++i) {
        const std::size_t at = insert.columns.empty() ? i : ColumnIndex(table, insert.columns[i]);
        row.at(at) = Stored(table.columns[at].type, insert.values[i]);
    }
    Rows(TableIndex(insert.table)).push_back(std::move(row));
    return 1;
}

int SqlModel::Change(const store::UpdateStatement& update) {
    const store::SchemaTable& table = TableNamed(update.table);
    int changed = 0;
    for (Row& row : Rows(TableIndex(update.table))) {
        if (!std::visit(Fulfils{table, row}, update.where)) {
            continue;
        }
        ++changed;
        for (const store::Assignment& assignment : update.assignments) {
            const std::size_t at = ColumnIndex(table, assignment.column);
            row.at(at) = Stored(table.columns[at].type, assignment.value);
        }
    }
    return changed;
}

int SqlModel::Change(const store::DeleteStatement& erase) {
    const store::SchemaTable& table = TableNamed(erase.table);
    return static_cast<int>(std::erase_if(Rows(TableIndex(erase.table)), [&](const Row& row) {
        return std::visit(Fulfils{table, row}, erase.where);
    }));
}

}  // namespace tickwell

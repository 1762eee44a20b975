// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/sql_model.h"

#include <algorithm>

#include "store/day_schema.h"

namespace tickwell {

namespace {

const SchemaTable& TableNamed(const QString& name) {
    return SchemaTables()[TableIndex(name)];
}

std::size_t ColumnIndex(const SchemaTable& table, const QString& name) {
    return FindColumn(table.columns, name).value();
}

template <typename Value>
bool Compares(SqlOperator op, const Value& left, const Value& right) {
    switch (op) {
        case SqlOperator::Equal:
            return left == right;
        case SqlOperator::NotEqual:
            return left != right;
        case SqlOperator::LessOrEqual:
            return left <= right;
        case SqlOperator::GreaterOrEqual:
            return left >= right;
        case SqlOperator::Less:
            return left < right;
        case SqlOperator::Greater:
            return left > right;
    }
    return false;
}

bool Compares(SqlOperator op, const SqlLiteral& left, const SqlLiteral& right) {
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
    const SchemaTable& table;
    const SqlModel::Row& row;

    bool operator()(const Comparison& comparison) const {
        return Compares(comparison.op, row.at(ColumnIndex(table, comparison.column)), comparison.value);
    }
    bool operator()(const Between& between) const {
        const SqlLiteral& value = row.at(ColumnIndex(table, between.column));
        return Compares(SqlOperator::GreaterOrEqual, value, between.first) &&
               Compares(SqlOperator::LessOrEqual, value, between.last);
    }
    bool operator()(const AllOf& all) const {
        return std::all_of(all.parts.begin(), all.parts.end(),
                           [this](const Condition& part) { return std::visit(*this, part); });
    }
    bool operator()(const AnyOf& any) const {
        return std::any_of(any.parts.begin(), any.parts.end(),
                           [this](const Condition& part) { return std::visit(*this, part); });
    }
};

/// The value as stored: a number can be given in quotes.
SqlLiteral Stored(ColumnType type, const SqlLiteral& literal) {
    const auto* text = std::get_if<QString>(&literal);
    return type == ColumnType::Integer && text != nullptr ? SqlLiteral(text->toInt()) : literal;
}

}  // namespace

std::size_t TableIndex(const QString& name) {
    return static_cast<std::size_t>(FindTable(name) - SchemaTables().data());
}

std::vector<SqlModel::Row> SqlModel::Answer(const SelectStatement& select) const {
    const SchemaTable& table = TableNamed(select.table);
    std::vector<Row> answer;
    for (const Row& row : m_tables.at(TableIndex(select.table))) {
        if (!std::visit(Fulfils{table, row}, select.where)) {
            continue;
        }
        Row asked = select.columns.empty() ? row : Row();
        for (const QualifiedColumn& name : select.columns) {
            asked.push_back(row.at(ColumnIndex(table, name.column)));
        }
        answer.push_back(std::move(asked));
    }
    return answer;
}

std::optional<int> SqlModel::Change(const SqlStatement& statement) {
    if (const auto* insert = std::get_if<InsertStatement>(&statement)) {
        return Change(*insert);
    }
    if (const auto* update = std::get_if<UpdateStatement>(&statement)) {
        return Change(*update);
    }
    return Change(std::get<DeleteStatement>(statement));
}

std::optional<int> SqlModel::Change(const InsertStatement& insert) {
    const SchemaTable& table = TableNamed(insert.table);
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

int SqlModel::Change(const UpdateStatement& update) {
    const SchemaTable& table = TableNamed(update.table);
    int changed = 0;
    for (Row& row : Rows(TableIndex(update.table))) {
        if (!std::visit(Fulfils{table, row}, update.where)) {
            continue;
        }
        ++changed;
        for (const Assignment& assignment : update.assignments) {
            const std::size_t at = ColumnIndex(table, assignment.column);
            row.at(at) = Stored(table.columns[at].type, assignment.value);
        }
    }
    return changed;
}

int SqlModel::Change(const DeleteStatement& erase) {
    const SchemaTable& table = TableNamed(erase.table);
    return static_cast<int>(std::erase_if(Rows(TableIndex(erase.table)), [&](const Row& row) {
        return std::visit(Fulfils{table, row}, erase.where);
    }));
}

}  // namespace tickwell

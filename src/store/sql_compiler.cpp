// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/sql_compiler.h"

#include "store/sql_error.h"
#include "store/sql_parser.h"
#include "store/sql_values.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

QByteArray Quoted(QStringView name) {
    return '"' + name.toLatin1() + '"';
}

QByteArray Symbol(SqlOperator op) {
    switch (op) {
        case SqlOperator::Equal:
            return " = ";
        case SqlOperator::NotEqual:
            return " <> ";
        case SqlOperator::LessOrEqual:
            return " <= ";
        case SqlOperator::GreaterOrEqual:
            return " >= ";
        case SqlOperator::Less:
            return " < ";
        case SqlOperator::Greater:
            return " > ";
    }
    Q_UNREACHABLE();
}

/// Compares texts code point by code point. Names are compared nowhere else in the program.
QByteArray TextEquality(const QByteArray& column, const QByteArray& parameter) {
    return column + " = " + parameter + " COLLATE BINARY";
}

class Compiler {
public:
    explicit Compiler(const QString& sql) : m_sql(sql) {}

    CompiledSql Compile() {
        m_result.text =
            std::visit([this](const auto& statement) { return Text(statement); }, ParseSql(m_sql));
        return std::move(m_result);
    }

private:
    QByteArray Text(const SelectStatement& select) {
        EnterTable(select.table);
        m_result.isQuery = true;
        for (const QualifiedColumn& name : select.columns) {
            m_result.columns.push_back(ColumnOfTable(name));
        }
        if (select.columns.empty()) {
            m_result.columns.assign(m_table->columns.begin(), m_table->columns.end());
        }
        QByteArrayList names;
        for (const SchemaColumn& column : m_result.columns) {
            names.append(Quoted(column.name));
        }
        const QByteArray from = "SELECT " + names.join(',') + " FROM " + Quoted(m_table->name);
        const QByteArray rest = Where(select.where) + R"( ORDER BY "id")";
        m_result.fromTheStart = from + " NOT INDEXED" + rest;
        return from + rest;
    }

    QByteArray Text(const DeleteStatement& erase) {
        EnterTable(erase.table);
        for (const QualifiedColumn& name : erase.columns) {
            ColumnOfTable(name);
        }
        return "DELETE FROM " + Quoted(m_table->name) + Where(erase.where);
    }

    QByteArray Text(const InsertStatement& insert) {
        EnterTable(insert.table);
        std::vector<SchemaColumn> columns;
        for (const QString& name : insert.columns) {
            AddOnce(columns, Column(name));
        }
        if (insert.columns.empty()) {
            columns.assign(m_table->columns.begin(), m_table->columns.end());
        }
        if (columns.size() != insert.values.size()) {
            Refuse(u"SQL文の値の数が列の数と一致しません。"_s);
        }
        QByteArrayList names;
        QByteArrayList parameters;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            names.append(Quoted(columns[i].name));
            parameters.append(Parameter(StoredValue(columns[i].type, insert.values[i])));
        }
        return "INSERT INTO " + Quoted(m_table->name) + '(' + names.join(',') + ") VALUES (" +
               parameters.join(',') + ')';
    }

    QByteArray Text(const UpdateStatement& update) {
        EnterTable(update.table);
        std::vector<SchemaColumn> columns;
        QByteArrayList assignments;
        for (const Assignment& assignment : update.assignments) {
            const SchemaColumn& column = Column(assignment.column);
            AddOnce(columns, column);
            assignments.append(Quoted(column.name) + " = " +
                               Parameter(StoredValue(column.type, assignment.value)));
        }
        return "UPDATE " + Quoted(m_table->name) + " SET " + assignments.join(", ") + Where(update.where);
    }

    QByteArray Where(const Condition& condition) {
        m_result.table = m_table;
        m_result.condition = Text(condition);
        return " WHERE " + m_result.condition;
    }

    QByteArray Text(const Condition& condition) {
        return std::visit([this](const auto& part) { return Text(part); }, condition);
    }

    QByteArray Text(const Comparison& comparison) {
        const SchemaColumn& column = Column(comparison.column);
        const QByteArray name = Quoted(column.name);
        const QByteArray parameter = Parameter(ComparedValue(column.type, comparison.value));
        if (column.type != ColumnType::Text) {
            return name + Symbol(comparison.op) + parameter;
        }
        // A second comparison of a name can only come from a name that contains a double quote.
        if (comparison.op != SqlOperator::Equal || m_comparesText) {
            Refuse(u"SQL文の文字列の比較が正しくありません。"_s);
        }
        m_comparesText = true;
        return TextEquality(name, parameter);
    }

    QByteArray Text(const Between& between) {
        const SchemaColumn& column = Column(between.column);
        if (column.type == ColumnType::Text) {
            Refuse(u"SQL文の文字列の比較が正しくありません。"_s);
        }
        const QByteArray first = Parameter(ComparedValue(column.type, between.first));
        const QByteArray last = Parameter(ComparedValue(column.type, between.last));
        return Quoted(column.name) + " BETWEEN " + first + " AND " + last;
    }

    QByteArray Text(const AllOf& all) { return Joined(all.parts, " AND "); }

    QByteArray Text(const AnyOf& any) { return Joined(any.parts, " OR "); }

    /// Brackets each part that is itself a conjunction or disjunction.
    QByteArray Joined(const std::vector<Condition>& parts, const char* word) {
        QByteArrayList texts;
        for (const Condition& part : parts) {
            const bool isSingle =
                std::holds_alternative<Comparison>(part) || std::holds_alternative<Between>(part);
            const QByteArray text = Text(part);
            texts.append(isSingle ? text : '(' + text + ')');
        }
        return texts.join(word);
    }

    QByteArray Parameter(const std::optional<BoundValue>& value) {
        if (!value) {
            Refuse(u"SQL文の値の型が列と一致しません。"_s);
        }
        m_result.values.push_back(*value);
        return '?' + QByteArray::number(m_result.values.size());
    }

    void EnterTable(const QString& name) {
        m_table = FindTable(name);
        if (m_table == nullptr) {
            Refuse(u"SQL文の表の名前が正しくありません。"_s);
        }
    }

    const SchemaColumn& Column(const QString& name) const {
        const auto index = FindColumn(m_table->columns, name);
        if (!index) {
            Refuse(u"SQL文の列の名前が正しくありません。"_s);
        }
        return m_table->columns[*index];
    }

    const SchemaColumn& ColumnOfTable(const QualifiedColumn& name) const {
        if (FindTable(name.table) != m_table) {
            Refuse(u"SQL文の表の名前が正しくありません。"_s);
        }
        return Column(name.column);
    }

    void AddOnce(std::vector<SchemaColumn>& columns, const SchemaColumn& column) const {
        if (FindColumn(columns, column.name)) {
            Refuse(u"SQL文に同じ列が二度あります。"_s);
        }
        columns.push_back(column);
    }

    [[noreturn]] void Refuse(const QString& reason) const { throw SqlError(reason, m_sql); }

    const QString& m_sql;
    CompiledSql m_result;
    const SchemaTable* m_table = nullptr;
    bool m_comparesText = false;
};

}  // namespace

CompiledSql CompileSql(const QString& sql) {
    return Compiler(sql).Compile();
}

}  // namespace tickwell::store

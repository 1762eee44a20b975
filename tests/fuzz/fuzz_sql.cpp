// SPDX-License-Identifier: GPL-3.0-or-later
// Statements in the day database's SQL dialect, separated by ";" and a line feed. Each is refused, or SQLite
// has the same effect and result as a model of plain lists. No text of a statement may reach SQLite as SQL.

#include <QFile>

#include "fuzz/fuzz_check.h"
#include "fuzz/sql_model.h"
#include "fuzz/sqlite_watch.h"
#include "store/day_database.h"
#include "store/day_transaction.h"
#include "store/jet/day_file_writer.h"
#include "store/sql_compiler.h"
#include "store/sql_error.h"
#include "store/sql_parser.h"
#include "store/sqlite_text.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

/// A day database with a few rows of each kind, and a model with equal rows.
class Bench {
public:
    Bench() {
        const auto date = [](int year, int month, int day) { return SqlModel::Row{QDate(year, month, day)}; };
        m_model.Rows(0) = {{u"n0"_s, 0, 0, 2, 0}, {u"n1"_s, 0, 1, 2, 0},     {u"n1"_s, 0, 1, 2, 0},
                           {u""_s, 0, 0, 0, 22},  {u"n2"_s, 1998, 10, 3, 0}, {u"Day=1"_s, -1, 12, 31, 57}};
        m_model.Rows(1) = {{u"元日"_s, 1, 1}, {u"文化の日"_s, 11, 3}};
        m_model.Rows(2) = {date(1998, 10, 3), date(100, 1, 1), date(9999, 12, 31)};
        m_model.Rows(3) = {date(2000, 2, 29)};
        m_model.Rows(4) = {date(1998, 10, 31), date(1998, 10, 31)};
        const QString path = m_folder.File("DayDate.mdb");
        QFile file(path);
        Require(file.open(QIODevice::WriteOnly), "a file can be made");
        file.close();
        store::WriteDayFile(path, StoredRows());
        m_database = store::DayDatabase(path);
        m_watch.Begin();
    }

    store::DayDatabase& Database() { return m_database; }
    const SqlModel& Model() const { return m_model; }

private:
    store::DayRows StoredRows() {
        store::DayRows tables;
        for (std::size_t table = 0; table < store::SchemaTables().size(); ++table) {
            store::DayTableRows stored;
            for (const SqlModel::Row& row : m_model.Rows(table)) {
                QList<store::DayValue> values;
                for (const store::SqlLiteral& value : row) {
                    values.append(Stored(value));
                }
                stored.rows.append(values);
            }
            tables.append(stored);
        }
        return tables;
    }

    static store::DayValue Stored(const store::SqlLiteral& value) {
        if (const auto* number = std::get_if<qint32>(&value)) {
            return *number;
        }
        const auto* date = std::get_if<QDate>(&value);
        return date != nullptr ? date->toString(Qt::ISODate) : std::get<QString>(value);
    }

    QuickFolder m_folder;
    SqliteWatch m_watch;
    SqlModel m_model;
    store::DayDatabase m_database;
};

/// The result of `job`; nullopt if it is refused, and then the error must name `sql`.
template <typename Job>
auto Unless(const QString& sql, Job job) -> std::optional<decltype(job())> {
    try {
        return job();
    } catch (const store::SqlError& error) {
        Require(error.Sql() == sql, "an error names its statement");
        Require(!error.Reason().isEmpty(), "an error has a reason");
        return std::nullopt;
    }
}

store::SqlLiteral ValueAt(const store::ResultRow& row, const store::SchemaColumn& column) {
    switch (column.type) {
        case store::ColumnType::Integer:
            return row.Integer(column.name);
        case store::ColumnType::Date:
            return row.Date(column.name);
        case store::ColumnType::Text:
            break;
    }
    return row.Text(column.name);
}

void RequireSame(const store::ResultSet& answer, const std::vector<store::SchemaColumn>& columns,
                 const std::vector<SqlModel::Row>& expected) {
    Require(static_cast<std::size_t>(answer.Count()) == expected.size(), "as many rows as the model has");
    for (std::size_t i = 0; i < expected.size(); ++i) {
        for (std::size_t column = 0; column < columns.size(); ++column) {
            Require(ValueAt(answer.Row(static_cast<int>(i)), columns[column]) == expected[i][column],
                    "the rows of the model, in their order");
        }
    }
}

/// Requires that another spelling of the statement has the same meaning.
void RequireSameMeaning(const store::CompiledSql& compiled, const store::SqlStatement& statement) {
    const QString printed = Printed(statement);
    const store::CompiledSql again = store::CompileSql(printed);
    Require(again.text == compiled.text && again.values == compiled.values, "printed, it means the same");
    Require(Printed(store::ParseSql(printed)) == printed, "printed twice, it is the same");
}

void RunOne(const QString& sql, store::DayDatabase& database, SqlModel& model) {
    const auto compiled = Unless(sql, [&] { return store::CompileSql(sql); });
    const auto answer = Unless(sql, [&] { return database.RunQuery(sql); });
    const auto changed = Unless(sql, [&] { return database.Execute(sql); });
    if (!compiled) {
        Require(!answer && !changed, "what is no statement is not run");
        return;
    }
    const store::SqlStatement statement = store::ParseSql(sql);
    RequireSameMeaning(*compiled, statement);
    const auto* select = std::get_if<store::SelectStatement>(&statement);
    Require(compiled->isQuery == (select != nullptr), "a query is a SELECT");
    if (select != nullptr) {
        Require(answer && !changed, "a query is answered and changes nothing");
        RequireSame(*answer, compiled->columns, model.Answer(*select));
    } else {
        Require(!answer, "a change is not answered");
        Require(changed == model.Change(statement), "it changes what the model changes");
    }
}

void RequireSameTables(store::DayDatabase& database, const SqlModel& model) {
    for (const store::SchemaTable& table : store::SchemaTables()) {
        const bool hasMonth = store::FindColumn(table.columns, u"Month").has_value();
        const QString everything = u"SELECT * FROM "_s + table.name + u" WHERE " +
                                   (hasMonth ? u"Month<0 OR Month>=0"_s : u"Date>=#1/1/0100#"_s);
        RequireSame(database.RunQuery(everything), {table.columns.begin(), table.columns.end()},
                    model.Answer(std::get<store::SelectStatement>(store::ParseSql(everything))));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Bench bench;
    const QString text = store::FromSqliteText(InputBytes(data, size));
    SqlModel model = bench.Model();
    // Never committed: each input starts with the same rows.
    const store::DayTransaction transaction(bench.Database());
    for (const QString& sql : text.split(u";\n"_s)) {
        RunOne(sql, bench.Database(), model);
    }
    RequireSameTables(bench.Database(), model);
    return 0;
}

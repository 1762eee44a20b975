// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/day_file_writer.h"

#include <sqlite3.h>
#include <QFile>
#include <QStringList>

#include "core/errors.h"
#include "store/day_schema.h"
#include "store/jet/schema_script.h"
#include "store/sqlite_handle.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void Fail(sqlite3* handle) {
    throw RunTimeError(u"データベースエラー %1: %2"_s.arg(sqlite3_extended_errcode(handle))
                           .arg(QString::fromUtf8(sqlite3_errmsg(handle))));
}

SqliteHandle Open(const QString& path) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(QFile::encodeName(path).constData(), &opened,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE, nullptr);
    SqliteHandle handle(opened);  // a failed open returns a handle too, which contains the reason
    if (result != SQLITE_OK) {
        Fail(opened);
    }
    return handle;
}

void Run(sqlite3* handle, const char* script) {
    if (sqlite3_exec(handle, script, nullptr, nullptr, nullptr) != SQLITE_OK) {
        Fail(handle);
    }
}

SqliteStatementHandle Prepare(sqlite3* handle, const QString& sql) {
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(handle, sql.toUtf8().constData(), -1, &prepared, nullptr) != SQLITE_OK) {
        Fail(handle);
    }
    return SqliteStatementHandle(prepared);
}

int Bind(sqlite3_stmt* statement, int place, const DayValue& value) {
    if (const qint32* number = std::get_if<qint32>(&value)) {
        return sqlite3_bind_int(statement, place, *number);
    }
    const QByteArray text = std::get<QString>(value).toUtf8();
    return sqlite3_bind_text(statement, place, text.constData(), static_cast<int>(text.size()),
                             SQLITE_TRANSIENT);
}

QString InsertInto(const SchemaTable& table) {
    QStringList names;
    QStringList places;
    for (const SchemaColumn& column : table.columns) {
        names.append(u"\"%1\""_s.arg(column.name));
        places.append(u"?"_s);
    }
    return u"INSERT INTO \"%1\"(%2) VALUES(%3)"_s.arg(table.name, names.join(u','), places.join(u','));
}

void WriteTable(sqlite3* handle, const SchemaTable& table, const DayTableRows& rows) {
    const SqliteStatementHandle insert = Prepare(handle, InsertInto(table));
    for (const QList<DayValue>& row : rows.rows) {
        for (int i = 0; i < row.size(); ++i) {
            if (Bind(insert.get(), i + 1, row.at(i)) != SQLITE_OK) {
                Fail(handle);
            }
        }
        if (sqlite3_step(insert.get()) != SQLITE_DONE || sqlite3_reset(insert.get()) != SQLITE_OK) {
            Fail(handle);
        }
    }
}

void CheckCount(sqlite3* handle, const SchemaTable& table, const DayTableRows& rows) {
    const SqliteStatementHandle count = Prepare(handle, u"SELECT count(*) FROM \"%1\""_s.arg(table.name));
    if (sqlite3_step(count.get()) != SQLITE_ROW) {
        Fail(handle);
    }
    if (sqlite3_column_int64(count.get(), 0) != rows.rows.size()) {
        throw RunTimeError(u"表「%1」を書き込めませんでした。"_s.arg(table.name));
    }
}

}  // namespace

void WriteDayFile(const QString& path, const DayRows& rows) {
    const auto tables = SchemaTables();
    {
        const SqliteHandle handle = Open(path);
        // A file that failed is discarded, so it need not survive a power failure.
        Run(handle.get(), "PRAGMA journal_mode=MEMORY; PRAGMA synchronous=OFF");
        Run(handle.get(), SchemaScript());
        Run(handle.get(), "BEGIN");
        for (qsizetype i = 0; i < rows.size(); ++i) {
            WriteTable(handle.get(), tables[static_cast<size_t>(i)], rows.at(i));
        }
        Run(handle.get(), "COMMIT");
    }
    const SqliteHandle handle = Open(path);
    for (qsizetype i = 0; i < rows.size(); ++i) {
        CheckCount(handle.get(), tables[static_cast<size_t>(i)], rows.at(i));
    }
}

}  // namespace tickwell::store

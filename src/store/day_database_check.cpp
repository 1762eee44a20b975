// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/day_database_check.h"

#include "core/errors.h"
#include "store/day_schema.h"
#include "store/log.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView kFirstBytes("SQLite format 3\0", 16);
constexpr int kApplicationId = 0x544B5732;  // "TKW2"
constexpr int kVersion = 1;

void CheckKind(SqliteConnection& connection) {
    if (connection.Bytes(0, static_cast<int>(kFirstBytes.size())) != kFirstBytes) {
        throw RunTimeError(u"データベースの形式が違います。"_s);
    }
    // A database restored from an SQL dump has lost its application id but is valid.
    const QString id = connection.FirstValue("PRAGMA application_id");
    if (id != QString::number(kApplicationId) && id != u"0") {
        throw RunTimeError(u"ほかのプログラムのデータベースです。"_s);
    }
    if (connection.FirstValue("PRAGMA user_version").toInt() > kVersion) {
        throw RunTimeError(u"新しい版のプログラムで作られたデータベースです。"_s);
    }
    if (connection.FirstValue("PRAGMA encoding") != "UTF-8"_L1) {  // other encodings would lose characters
        throw RunTimeError(u"データベースの文字コードが違います。"_s);
    }
}

QLatin1StringView SqliteType(ColumnType type) {
    return type == ColumnType::Integer ? "INTEGER"_L1 : "TEXT"_L1;
}

/// What SQLite reports about a valid table: its kind, STRICT, and for each column name, type, NOT NULL,
/// position in the key, and whether it is hidden.
QString ExpectedForm(const SchemaTable& table) {
    QString form = u"table 1,id INTEGER 0 1 0"_s;
    for (const SchemaColumn& column : table.columns) {
        form += u",%1 %2 1 0 0"_s.arg(column.name, SqliteType(column.type));
    }
    return form;
}

void CheckTable(SqliteConnection& connection, const SchemaTable& table) {
    const QByteArray name = '\'' + table.name.toLatin1() + '\'';
    const QString form = connection.FirstValue(
        "SELECT t.type || ' ' || t.strict || (SELECT group_concat("
        "',' || c.name || ' ' || c.type || ' ' || c.\"notnull\" || ' ' || c.pk || ' ' || c.hidden, '') "
        "FROM pragma_table_xinfo(" +
        name + ") c) FROM pragma_table_list t WHERE t.schema = 'main' AND t.name = " + name);
    if (form.isEmpty()) {
        throw RunTimeError(u"データベースに表 %1 がありません。"_s.arg(table.name));
    }
    if (form != ExpectedForm(table)) {
        throw RunTimeError(u"データベースの表 %1 の形が違います。"_s.arg(table.name));
    }
}

/// Only another program can have stored such rows. The calendar works without them, so the file is not
/// refused; the log says why they are not shown.
void LogValuesThatAreNoDates(SqliteConnection& connection, const SchemaTable& table) {
    for (const SchemaColumn& column : table.columns) {
        if (column.type != ColumnType::Date) {
            continue;
        }
        const QByteArray name = '"' + column.name.toLatin1() + '"';
        const QString row =
            connection.FirstValue("SELECT id FROM \"" + table.name.toLatin1() + "\" WHERE date(" + name +
                                  ", '+0 days') IS NOT " + name + " LIMIT 1");
        if (!row.isEmpty()) {
            qCWarning(StoreLog, "Day database: row %s of table %s holds no date and falls on no day.",
                      qPrintable(row), qPrintable(table.name.toString()));
        }
    }
}

}  // namespace

void CheckDayDatabase(SqliteConnection& connection) {
    CheckKind(connection);
    if (connection.FirstValue("PRAGMA quick_check(1)") != "ok"_L1) {
        throw RunTimeError(u"データベースが壊れています。"_s);
    }
    for (const SchemaTable& table : SchemaTables()) {
        CheckTable(connection, table);
        LogValuesThatAreNoDates(connection, table);
    }
}

}  // namespace tickwell::store

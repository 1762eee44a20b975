// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/sqlite_watch.h"

#include <sqlite3.h>

#include <QByteArrayList>
#include <array>

#include "fuzz/fuzz_check.h"
#include "store/day_schema.h"

namespace tickwell {

namespace {

sqlite3* g_opened = nullptr;

int Remember(sqlite3* handle, char** /*error*/, const void* /*routines*/) {
    g_opened = handle;
    return SQLITE_OK;
}

bool IsOwnName(const QByteArray& name) {
    const QString text = QString::fromLatin1(name);
    for (const store::SchemaTable& table : store::SchemaTables()) {
        if (table.name == text || store::FindColumn(table.columns, text)) {
            return true;
        }
    }
    return name == "id";
}

bool IsOwnWord(const QByteArray& word) {
    static const QByteArrayList words{"SELECT", "DELETE", "INSERT",   "UPDATE",   "FROM",
                                      "INTO",   "SET",    "VALUES",   "WHERE",    "ORDER",
                                      "BY",     "AND",    "OR",       "BETWEEN",  "COLLATE",
                                      "BINARY", "BEGIN",  "ROLLBACK", "IMMEDIATE"};
    return words.contains(word);
}

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The length of the keyword, quoted name, parameter or sign of the program's own at the start of `text`; 0
/// if there is none.
qsizetype OwnLength(const QByteArray& text) {
    qsizetype length = 1;
    if (text.front() == '"') {
        length = text.indexOf('"', 1) + 1;
        return length > 0 && IsOwnName(text.sliced(1, length - 2)) ? length : 0;
    }
    if (IsLetter(text.front())) {
        while (length < text.size() && IsLetter(text[length])) {
            ++length;
        }
        return IsOwnWord(text.first(length)) ? length : 0;
    }
    if (text.front() == '?') {
        while (length < text.size() && IsDigit(text[length])) {
            ++length;
        }
        return length > 1 ? length : 0;
    }
    return QByteArray(" (),=<>").contains(text.front()) ? 1 : 0;
}

int SeeStatement(unsigned /*kind*/, void* /*context*/, void* /*statement*/, void* sql) {
    QByteArray text(static_cast<const char*>(sql));
    while (!text.isEmpty()) {
        const qsizetype own = OwnLength(text);
        Require(own > 0, "SQLite is given our own words alone");
        text = text.sliced(own);
    }
    return 0;
}

int Allow(void* /*context*/, int action, const char* first, const char* /*second*/, const char* /*database*/,
          const char* trigger) {
    const bool isRows = action == SQLITE_READ || action == SQLITE_INSERT || action == SQLITE_UPDATE ||
                        action == SQLITE_DELETE;
    const bool isOurs = isRows && store::FindTable(QString::fromUtf8(first)) != nullptr;
    Require(trigger == nullptr && (isOurs || action == SQLITE_SELECT || action == SQLITE_TRANSACTION),
            "a statement touches rows of our tables alone");
    return SQLITE_OK;
}

}  // namespace

SqliteWatch::SqliteWatch() {
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(Remember));
}

void SqliteWatch::Begin() {
    Require(g_opened != nullptr, "the database was opened");
    sqlite3_trace_v2(g_opened, SQLITE_TRACE_STMT, SeeStatement, nullptr);
    sqlite3_set_authorizer(g_opened, Allow, nullptr);
}

}  // namespace tickwell

// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/sql_error.h"

#include <sqlite3.h>

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPrimaryCode = 0xFF;  // the low byte of an extended result code

QString Words(int sqliteCode) {
    if (sqliteCode == SQLITE_READONLY_DBMOVED) {
        return u"データベースのファイルが移動または削除されました。"_s;
    }
    if (sqliteCode == SQLITE_READONLY_ROLLBACK) {  // read only, after a writer was killed
        return u"データベースへの書き込みが途中で終わっています。Tickwell を起動すると元に戻ります。"_s;
    }
    switch (sqliteCode & kPrimaryCode) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return u"データベースはほかのプログラムで使用中です。"_s;
        case SQLITE_READONLY:
        case SQLITE_PERM:
            return u"データベースに書き込めません。"_s;
        case SQLITE_FULL:
            return u"ディスクの空き容量が足りません。"_s;
        case SQLITE_CORRUPT:
            return u"データベースが壊れています。"_s;
        case SQLITE_NOTADB:
            return u"データベースの形式が違います。"_s;
        case SQLITE_CANTOPEN:
            return u"データベースのファイルを開けません。"_s;
        case SQLITE_IOERR:
            return u"データベースの読み書きに失敗しました。"_s;
        case SQLITE_NOMEM:
            return u"データベースを扱うメモリが足りません。"_s;
        case SQLITE_TOOBIG:
            return u"データベースに長すぎる値があります。"_s;
        case SQLITE_CONSTRAINT:
            return u"データベースに入れられない値です。"_s;
        default:
            return u"データベースのエラーです。"_s;
    }
}

}  // namespace

SqlError::SqlError(const QString& reason, QString sql, int sqliteCode)
    : RunTimeError(reason), m_sql(std::move(sql)), m_sqliteCode(sqliteCode) {}

QString SqlError::Detail() const {
    return u"%1 (SQLite code %2, statement: %3)"_s.arg(RunTimeError::Detail()).arg(m_sqliteCode).arg(m_sql);
}

ForeignValueError::ForeignValueError() : RunTimeError(u"データベースの値が正しくありません。"_s) {}

QString SqliteReason(int sqliteCode) {
    return u"%1(%2)"_s.arg(Words(sqliteCode)).arg(sqliteCode);
}

}  // namespace tickwell::store

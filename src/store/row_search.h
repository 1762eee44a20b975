// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>

#include "store/day_database.h"
#include "store/found_row.h"
#include "store/sql_compiler.h"

namespace tickwell::store {

/// Finds the rows of one table in slices, in the order of insertion, without keeping their values: a million
/// results take 16 MB. Nothing is locked between two slices. If the rows may have changed in the meantime
/// (ChangeMark), the caller starts a new search.
class RowSearch {
public:
    using Filter = std::function<bool(const RowDigest&)>;

    /// Finds the rows that `select` selects. Throws SqlError if it is not a SELECT.
    explicit RowSearch(const QString& select);

    /// Finds all rows of `table`, a table of the schema, whose digest passes `filter`.
    RowSearch(QStringView table, Filter filter);

    /// From now on only counts the results.
    void CountOnly() { m_keeps = false; }

    /// Does a few milliseconds of the search: the first call tries the whole table, within a limit, and each
    /// later one searches 10 000 rows. Returns true once all have been searched. Throws SqlError.
    bool Step(DayDatabase& database);

    /// Progress, 0 to 1.
    double Part() const { return m_part; }

    int Count() const { return m_count; }

    /// Returns the results so far.
    FoundRows Take();

private:
    bool TryWhole(SqliteConnection& connection);
    bool Slice(SqliteConnection& connection);
    void Enter(SqliteConnection& connection);
    void Collect(SqliteStatement& statement);
    SqliteStatement& Prepared(SqliteConnection& connection, const QByteArray& text) const;
    QByteArray Select(const QByteArray& from) const;
    void Forget();

    QString m_sql;
    CompiledSql m_compiled;
    const SchemaTable* m_table = nullptr;
    Filter m_filter;
    RowDigester m_digester;
    FoundRows m_found;
    int m_count = 0;
    bool m_keeps = true;
    std::optional<qint64> m_next;  // first key of the next slice; empty before the first slice
    qint64 m_first = 0;            // smallest and largest key
    qint64 m_last = 0;
    double m_part = 0;
};

/// The digest of the current row of `statement`, whose columns from `column` on are those of `table`. Throws
/// RunTimeError for a number beyond 32 bits, which only another program can have stored.
RowDigest DigestOf(const SqliteStatement& statement, int column, const SchemaTable& table,
                   RowDigester& digester);

}  // namespace tickwell::store

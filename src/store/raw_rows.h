// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

#include "store/day_database.h"

namespace tickwell::store {

/// Whole rows by the bytes of their values, whatever these are; integers as decimal digits.
class RawRows {
public:
    /// `database` outlives this object.
    explicit RawRows(DayDatabase& database) : m_database(database) {}

    /// Passes each row of `table` with its key, in the order of insertion; the values are valid during the
    /// call. Throws SqlError.
    void ForEach(
        const SchemaTable& table,
        const std::function<void(qint64 key, const std::vector<QByteArrayView>& values)>& take) const;

    /// Adds a row as the last one. `values`: one per column; those of integer columns fit 32 bits. Throws
    /// SqlError.
    void Insert(const SchemaTable& table, const std::vector<QByteArray>& values) const;

private:
    DayDatabase& m_database;
};

/// A second SQLite file on the connection of a day database: a transaction changes both files or none, even
/// if the process is killed or the power fails.
class AttachedFile {
public:
    static constexpr const char* kSchema = "attached";  ///< its name in statements

    /// `path`: of an existing file that no connection has open for writing. `database` outlives this object,
    /// has no open transaction now, nor when this is destroyed. Throws SqlError.
    AttachedFile(DayDatabase& database, const QString& path);
    ~AttachedFile();
    AttachedFile(const AttachedFile&) = delete;
    AttachedFile& operator=(const AttachedFile&) = delete;

    SqliteConnection& Connection() const { return m_connection; }

private:
    void Detach();

    SqliteConnection& m_connection;
};

}  // namespace tickwell::store

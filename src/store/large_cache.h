// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::store {

class DayDatabase;
class SqliteConnection;

/// Lets the connection use 40 MB of memory for changed pages during its lifetime; without that, each of many
/// changes waits for the disk.
class LargeCache {
public:
    /// `database` outlives this object.
    explicit LargeCache(DayDatabase& database);
    ~LargeCache();
    LargeCache(const LargeCache&) = delete;
    LargeCache& operator=(const LargeCache&) = delete;

private:
    SqliteConnection& m_connection;
    QString m_before;
};

}  // namespace tickwell::store

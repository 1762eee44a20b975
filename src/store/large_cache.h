// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell {

class DayDatabase;
class SqliteConnection;

/// While it lives the connection may use 40 MB of memory for what it changes: without that each of many
/// changes waits for the disk.
class LargeCache {
public:
    /// `database` outlives it.
    explicit LargeCache(DayDatabase& database);
    ~LargeCache();
    LargeCache(const LargeCache&) = delete;
    LargeCache& operator=(const LargeCache&) = delete;

private:
    SqliteConnection& m_connection;
    QString m_before;
};

}  // namespace tickwell

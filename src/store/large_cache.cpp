// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/large_cache.h"

#include "core/errors.h"
#include "store/day_database.h"
#include "store/log.h"

namespace tickwell::store {

LargeCache::LargeCache(DayDatabase& database)
    : m_connection(database.Connection()), m_before(m_connection.FirstValue("PRAGMA cache_size")) {
    m_connection.Run("PRAGMA cache_size=-40000");  // KiB
}

LargeCache::~LargeCache() {
    try {
        m_connection.Run("PRAGMA cache_size=" + m_before.toLatin1());
        m_connection.Run("PRAGMA shrink_memory");
    } catch (const RunTimeError& error) {
        qCWarning(StoreLog).noquote() << "the day database keeps a large cache:" << error.Detail();
    }
}

}  // namespace tickwell::store

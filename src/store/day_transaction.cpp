// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/day_transaction.h"

#include "store/log.h"
#include "store/sql_error.h"

namespace tickwell::store {

DayTransaction::DayTransaction(DayDatabase& database) : m_connection(database.Connection()) {
    m_connection.Run("BEGIN IMMEDIATE");
}

DayTransaction::~DayTransaction() {
    if (!m_isOpen || !m_connection.IsInTransaction()) {
        return;
    }
    try {
        m_connection.Run("ROLLBACK");
    } catch (const RunTimeError& error) {
        // The journal file still exists: the next connection rolls back.
        qCWarning(StoreLog).noquote() << "no rollback:" << error.Detail();
    }
}

void DayTransaction::Commit() {
    m_connection.Run("COMMIT");
    m_isOpen = false;
}

}  // namespace tickwell::store

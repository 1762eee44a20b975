// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/day_database.h"

namespace tickwell::store {

/// The statements executed during its lifetime are all stored by Commit, or none of them is.
class DayTransaction {
public:
    /// Throws SqlError, for example if a transaction is already open. `database` outlives the transaction.
    explicit DayTransaction(DayDatabase& database);

    /// Rolls back unless Commit succeeded.
    ~DayTransaction();
    DayTransaction(const DayTransaction&) = delete;
    DayTransaction& operator=(const DayTransaction&) = delete;

    /// Throws SqlError.
    void Commit();

private:
    SqliteConnection& m_connection;
    bool m_isOpen = true;
};

}  // namespace tickwell::store

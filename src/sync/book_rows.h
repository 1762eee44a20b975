// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "store/day_database.h"
#include "sync/replica_state.h"

namespace tickwell::sync {

/// A stored row to delete.
struct StoredRow {
    const store::SchemaTable* table = nullptr;
    qint64 key = 0;
};

/// The rows of a book as they are stored.
struct ReadBook {
    BookRows rows;
    std::vector<std::vector<StoredRow>> stored;  ///< those of each of `rows`, in the order of insertion
    int skipped = 0;                             ///< rows that stay on this computer (see EncodeRow)
};

/// Reads all rows of the day database. Throws SqlError.
ReadBook ReadBookRows(store::DayDatabase& database);

/// Rows to delete and to add.
struct BookChanges {
    std::vector<StoredRow> gone;
    std::vector<QByteArray> come;  ///< as EncodeRow writes them

    std::size_t Count() const { return gone.size() + come.size(); }
    bool IsEmpty() const { return Count() == 0; }
};

/// What makes a book contain the rows of `state`: of too many equal rows those inserted last go.
BookChanges ChangesTo(const ReplicaState& state, const ReadBook& book);

/// Changes the rows in the open transaction. Throws SqlError.
void ApplyChanges(store::DayDatabase& database, const BookChanges& changes);

}  // namespace tickwell::sync

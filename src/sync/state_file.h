// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <memory>

#include "store/sqlite_connection.h"
#include "sync/replica_state.h"

namespace tickwell::sync {

inline constexpr QLatin1StringView kStateFile("DaySync.db");

/// What this computer remembers of the last time.
struct KeptState {
    quint64 replica = 0;  ///< this computer; random, never 0
    QString bookFile;     ///< which file the book was; empty before the first time
    QString writtenAs;    ///< the name of the file that was written last; empty before the first time
    ReplicaState state;   ///< as the book was after the last merge
};

/// What to change in it. Empty texts leave the kept ones.
struct KeptChanges {
    ReplicaState elements;
    QString bookFile;
    QString writtenAs;

    bool IsEmpty() const { return elements.empty() && bookFile.isEmpty() && writtenAs.isEmpty(); }
};

/// Opens the state, for one reader and writer at a time. A missing file is made, with a new replica. A
/// damaged one is renamed first, and its new name appended to `damaged`. Throws RunTimeError.
std::unique_ptr<store::SqliteConnection> OpenState(const QString& path, QStringList& damaged);

/// Throws RunTimeError.
KeptState ReadState(store::SqliteConnection& connection);

/// Changes the state in the open transaction. `schema`: under which name the file is attached to the
/// connection; "main" if it was opened with OpenState. Throws RunTimeError.
void WriteState(store::SqliteConnection& connection, const QByteArray& schema, const KeptChanges& changes);

/// The same in a transaction of its own, for a connection of OpenState.
void StoreState(store::SqliteConnection& connection, const KeptChanges& changes);

}  // namespace tickwell::sync

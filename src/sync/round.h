// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

#include "sync/book_rows.h"
#include "sync/state_file.h"

namespace tickwell::sync {

/// Where a merge takes place.
struct Place {
    QString folder;    ///< the folder of the files of all computers
    QString computer;  ///< this computer's name; empty for its host name
    QString book;      ///< absolute path of the day database
    QString state;     ///< absolute path of the state file
};

/// A file that is left as it is, and what is not done because of that.
struct LeftFile {
    QString name;
    QString why;  ///< one sentence for the user

    bool operator==(const LeftFile&) const = default;
};

/// What a merge has found out, for the user.
struct Report {
    QDateTime when;   ///< of the last complete merge; invalid before it
    QString problem;  ///< why nothing could be merged, one sentence; empty if it was
    QList<LeftFile> left;
    qsizetype computers = 0;  ///< this one and those whose files were read
    int skipped = 0;          ///< rows that stay on this computer
};

/// A merge that has read everything and changed nothing yet.
struct Round {
    bool isNothingNew = false;  ///< neither files nor book have changed; all else is empty
    QByteArray files;           ///< the names, sizes and times of the files that were read
    BookChanges book;           ///< to be stored together with `kept`
    KeptChanges kept;
    QString ownPath;  ///< the file to be written after that; empty for none
    QByteArray ownFile;
    Report report;
};

/// Reads the files, the book and the state, and merges them. Called on any thread; may take long for a folder
/// on a network. Opens the day database by a connection of its own, for reading. `now`: the wall clock.
/// `unchanged`: the `files` of a merge since which the book has not changed; empty for none. Throws
/// RunTimeError if book or state cannot be read now; problems of the folder are reported.
Round PlanRound(const Place& place, const QDateTime& now, const QByteArray& unchanged);

/// Stores the changes of book and state in one transaction over both files, so that after a kill either both
/// or none have changed: a row that was merged is never taken for a change of the user, nor the other way
/// round. Returns false, and has changed nothing, if the rows of the book may have changed since `mark`,
/// which was taken before the round was planned. Throws RunTimeError, and then nothing has changed.
bool StoreRound(store::DayDatabase& database, const Place& place, const Round& round,
                const store::ChangeMark& mark);

/// Stores the changes of the state of a round that does not change the book. Throws RunTimeError.
void StoreStateOnly(const Place& place, const Round& round);

}  // namespace tickwell::sync

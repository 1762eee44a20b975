// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include "core/program_folder.h"
#include "store/day_store.h"

namespace tickwell::store {

/// A day database with much free space inside the file. Its folder is the current one.
class LooseStore : public DayStore {
public:
    explicit LooseStore(int rows = 3000);

    /// All rows of all tables with their ids.
    QStringList Rows() const;

    /// The names of all files and folders in the folder, sorted.
    QStringList Names() const;

    QString PathOf(const QString& name) const { return Folder() + u'/' + name; }
};

/// The current folder, in the form in which the program passes its folder.
ProgramFolder Here();

/// The names in the folder when no compaction has left anything behind.
QStringList NamesAtRest();

}  // namespace tickwell::store

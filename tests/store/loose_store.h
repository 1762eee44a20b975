// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include "store/day_store.h"

namespace tickwell {

/// A day database with much empty space in it, in a folder that is the current one.
class LooseStore : public DayStore {
public:
    explicit LooseStore(int rows = 3000);

    /// Every row of every table with its id.
    QStringList Rows() const;

    /// The names of all files and folders that lie there, in order.
    QStringList Names() const;

    QString PathOf(const QString& name) const { return Folder() + u'/' + name; }
};

/// What lies in the folder when nothing is left over.
QStringList NamesAtRest();

}  // namespace tickwell

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "store/jet/jet_table.h"

namespace tickwell::store {

/// A Jet 3 or Jet 4 database in memory. It outlives the tables that it returns.
class JetFile {
public:
    /// `file`: the complete file, at most JetPages::kMaximumSize. Throws JetError.
    explicit JetFile(QByteArray file);

    JetFile(const JetFile&) = delete;
    JetFile& operator=(const JetFile&) = delete;

    const JetPages& Pages() const { return m_pages; }

    /// The table of that name, ignoring case; never a system table. Throws JetError with the name if there is
    /// none.
    JetTable Table(QStringView name) const;

private:
    struct Entry {
        QString name;
        quint32 page = 0;
    };

    void ReadCatalogue();

    JetPages m_pages;
    QList<Entry> m_tables;
};

}  // namespace tickwell::store

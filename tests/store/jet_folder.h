// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <QMap>
#include <QTemporaryDir>

#include "store/jet/jet_import.h"
#include "store/jet_samples.h"

namespace tickwell::store {

/// The files of a folder, by name.
using Contents = QMap<QString, QByteArray>;

/// A program folder that contains one file.
class JetFolder {
public:
    explicit JetFolder(const QByteArray& dayDate) { Put(QStringLiteral("DayDate.mdb"), dayDate); }

    QString Path(const QString& name) const { return m_folder.filePath(name); }
    QString DayDate() const { return Path(QStringLiteral("DayDate.mdb")); }
    void Put(const QString& name, const QByteArray& bytes) const;

    Contents All() const;

    /// Sets the permission bits of the folder.
    void SetMode(mode_t mode) const;

private:
    QTemporaryDir m_folder;
};

/// The complete Jet 4 sample, whose rows are those of expected.tsv.
QByteArray FullJet4();

/// The reason of the error that the import throws; empty if it throws none.
QString ImportError(const QString& path);
QString ImportError(const QString& path, StoreDisk& disk);

/// The rows of a database in the program's own format, written like the expected*.tsv files. Throws
/// std::runtime_error.
QByteArray StoredTsv(const QString& path);

/// Whether `path` opens as a database in the program's own format with the contents of the full Jet 4 sample.
bool IsWholeDatabase(const QString& path);

}  // namespace tickwell::store

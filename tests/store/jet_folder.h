// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <QMap>
#include <QTemporaryDir>

#include "store/jet/jet_import.h"
#include "store/jet_samples.h"

namespace tickwell {

/// The files of a folder, by name.
using Contents = QMap<QString, QByteArray>;

/// A program folder with one file in it.
class JetFolder {
public:
    explicit JetFolder(const QByteArray& dayDate) { Put(QStringLiteral("DayDate.mdb"), dayDate); }

    QString Path(const QString& name) const { return m_folder.filePath(name); }
    QString DayDate() const { return Path(QStringLiteral("DayDate.mdb")); }
    void Put(const QString& name, const QByteArray& bytes) const;

    Contents All() const;

    /// Gives the folder other permission bits.
    void SetMode(mode_t mode) const;

private:
    QTemporaryDir m_folder;
};

/// The file of the full Jet 4 sample, whose rows are those of expected.tsv.
QByteArray FullJet4();

/// The reason of the error that the import gives; empty when it gives none.
QString ImportError(const QString& path);
QString ImportError(const QString& path, ImportDisk& disk);

/// The rows of a database of ours, as the expected*.tsv have them. Throws std::runtime_error.
QByteArray StoredTsv(const QString& path);

/// Whether `path` opens as a database of ours and holds what the full Jet 4 sample does.
bool IsWholeDatabase(const QString& path);

}  // namespace tickwell

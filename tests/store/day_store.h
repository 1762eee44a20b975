// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QTemporaryDir>

#include "store/sqlite_handle.h"

namespace tickwell::store {

/// A connection that bypasses the program and uses SQLite directly. Throws std::runtime_error.
class RawConnection {
public:
    explicit RawConnection(const QString& path);

    /// Runs the statements; returns their rows, each with its values joined by "|".
    QStringList Run(const QByteArray& sql);

private:
    SqliteHandle m_handle;
};

/// A day database in its own folder, with the national holidays of the shipped one as its only rows.
class DayStore {
public:
    DayStore();

    QString Folder() const { return m_folder.path(); }
    QString Path() const { return m_folder.filePath(QStringLiteral("DayDate.mdb")); }
    QStringList Raw(const QByteArray& sql) const { return RawConnection(Path()).Run(sql); }

private:
    QTemporaryDir m_folder;
};

}  // namespace tickwell::store

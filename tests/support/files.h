// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QFile>
#include <QString>

namespace tickwell {

inline QByteArray ReadAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Ends the test program if the file cannot be written.
inline void WriteAll(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        qFatal("cannot write %s", qPrintable(path));
    }
}

/// Copies these files into an existing folder.
inline void CopyFiles(const QString& from, const QString& to, const QStringList& names) {
    for (const QString& name : names) {
        WriteAll(QDir(to).filePath(name), ReadAll(QDir(from).filePath(name)));
    }
}

}  // namespace tickwell

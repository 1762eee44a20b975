// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/file_replacement.h"

#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <cerrno>
#include <cstdio>

#include "platform/files/unfinished_files.h"

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

/// The target of a symbolic link; a dangling link is replaced itself.
QString FinalPath(const QString& path) {
    const QFileInfo file(path);
    return file.isSymLink() && file.exists() ? file.canonicalFilePath() : path;
}

}  // namespace

QString ReplaceFile(const QString& path, const QByteArray& bytes) {
    const QString final = FinalPath(path);
    const QFileInfo old(final);
    if (old.exists() && !old.isFile()) {
        return u"通常のファイルではありません。"_s;
    }
    if (old.exists() && !old.isWritable()) {  // rename would not check this
        return qt_error_string(EACCES);
    }
    const UnfinishedFilesInUse inUse(old.path());
    // Qt creates it readable by the owner only and, if the file system supports that, without a name.
    QTemporaryFile file(UnfinishedTemplate(final));
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush()) {
        return file.errorString();
    }
    const QByteArray name = QFile::encodeName(file.fileName());
    if (fsync(file.handle()) != 0 || rename(name.constData(), QFile::encodeName(final).constData()) != 0) {
        return qt_error_string(errno);
    }
    file.setAutoRemove(false);
    return QString();
}

}  // namespace tickwell::platform

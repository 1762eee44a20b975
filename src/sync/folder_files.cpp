// SPDX-License-Identifier: GPL-3.0-or-later
#include "sync/folder_files.h"

#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/regular_file.h"

namespace tickwell::sync {

using namespace Qt::StringLiterals;

std::optional<QStringList> DayFilesIn(const QString& folder, QString& problem) {
    if (folder.trimmed().isEmpty()) {
        problem = u"フォルダーが選ばれていません。"_s;
        return std::nullopt;
    }
    const QFileInfo info(folder);
    if (!info.isDir()) {
        problem = u"フォルダーがありません。"_s;
        return std::nullopt;
    }
    if (!info.isReadable()) {
        problem = u"フォルダーを読むことができません。"_s;
        return std::nullopt;
    }
    QStringList names;
    // Listed without a filter for kinds: a pipe with such a name is named to the user.
    for (const QString& name :
         QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot, QDir::Name)) {
        if (name.endsWith(kDayFileSuffix)) {
            names.append(name);
        }
    }
    return names;
}

QByteArray FingerprintOf(const QString& folder, const QStringList& names) {
    QByteArray print;
    for (const QString& name : names) {
        struct stat state {};
        print += name.toUtf8() + '\0';
        if (stat(QFile::encodeName(QDir(folder).filePath(name)).constData(), &state) == 0) {
            for (const qint64 value : {qint64{state.st_size}, qint64{state.st_mtim.tv_sec},
                                       qint64{state.st_mtim.tv_nsec}, static_cast<qint64>(state.st_ino)}) {
                print += QByteArray::number(value) + ' ';
            }
        }
    }
    return print;
}

FolderFile ReadFolderFile(const QString& path) {
    FolderFile file;
    FileContents contents = ReadRegularFile(path, kLargestDayFile);
    if (contents.problem != FileProblem::None) {
        file.why = contents.reason;
        return file;
    }
    file.result = ReadDayFile(contents.bytes);
    file.bytes = std::move(contents.bytes);
    file.why = ReasonOf(file.result.fault);
    return file;
}

}  // namespace tickwell::sync

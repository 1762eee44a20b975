// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/saved_file.h"

#include <QFileInfo>
#include <QSaveFile>

namespace tickwell {

using namespace Qt::StringLiterals;

QString SaveFile(const QString& path, const QByteArray& bytes) {
    const QFileInfo old(path);
    if (old.exists() && !old.isFile()) {  // a device would be replaced by a file
        return u"通常のファイルではありません。"_s;
    }
    QSaveFile file(path);
    // Without flush, a failure to write the last bytes would not be noticed: commit ignores it.
    const bool isSaved =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() && file.commit();
    return isSaved ? QString() : file.errorString();
}

}  // namespace tickwell

// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/day_files.h"

#include <QFileInfo>

namespace tickwell::store {

DayFiles FindDayFiles(const ProgramFolder& folder) {
    const QString live = FollowLinks(folder.PathOf(kLiveFile));
    // The target's base name is the prefix, because its folder may contain another day database with such
    // files.
    const QFileInfo file(live);
    const QString start =
        file.path() + u'/' + (file.fileName() == kLiveFile ? QString() : file.completeBaseName() + u'.');
    return {live, start + kSafetyCopy, start + kCompactionTarget};
}

QString FollowLinks(const QString& path) {
    constexpr int kMostLinks = 40;  // the same limit as in the kernel
    QFileInfo file(path);
    for (int i = 0; i < kMostLinks && file.isSymLink(); ++i) {
        file.setFile(file.symLinkTarget());
    }
    return file.filePath();
}

}  // namespace tickwell::store

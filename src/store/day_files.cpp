// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/day_files.h"

#include <QFileInfo>

namespace tickwell {

DayFiles FindDayFiles() {
    const QString live = FollowLinks(kLiveFile);
    if (live == kLiveFile) {
        return {live, kSafetyCopy, kCompactionTarget};
    }
    // Another name is put in front: its folder may be that of another day database, with files of its own.
    const QFileInfo file(live);
    const QString start =
        file.path() + u'/' + (file.fileName() == kLiveFile ? QString() : file.completeBaseName() + u'.');
    return {live, start + kSafetyCopy, start + kCompactionTarget};
}

QString FollowLinks(const QString& path) {
    constexpr int kMostLinks = 40;  // the kernel gives up after as many
    QFileInfo file(path);
    for (int i = 0; i < kMostLinks && file.isSymLink(); ++i) {
        file.setFile(file.symLinkTarget());
    }
    return file.filePath();
}

}  // namespace tickwell

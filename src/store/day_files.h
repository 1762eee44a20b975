// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>
#include <QString>

namespace tickwell {

// The files of the day database, all in the program's folder, which is the current one.
inline constexpr QLatin1StringView kLiveFile("DayDate.mdb");
inline constexpr QLatin1StringView kSafetyCopy("CopyDate.mdb");      ///< what it held before a compaction
inline constexpr QLatin1StringView kCompactionTarget("BUDate.mdb");  ///< what becomes of it

/// Where a compaction reads and writes. If DayDate.mdb is a symbolic link, the three files are in the folder
/// of the file that it leads to, with absolute paths: a rename over the link would leave that file behind,
/// which may be the one that a sync tool carries.
struct DayFiles {
    QString live;
    QString copy;
    QString target;
};

/// The files of the current folder.
DayFiles FindDayFiles();

/// The absolute path of the file that a symbolic link leads to, through any number of links, whether or not
/// that file exists; `path` itself if it is no link.
QString FollowLinks(const QString& path);

}  // namespace tickwell

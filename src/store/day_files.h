// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>
#include <QString>

#include "core/program_folder.h"

namespace tickwell::store {

// The files of the day database, all in the program's folder.
inline constexpr QLatin1StringView kLiveFile("DayDate.mdb");
inline constexpr QLatin1StringView kSafetyCopy("CopyDate.mdb");      ///< the live file before a compaction
inline constexpr QLatin1StringView kCompactionTarget("BUDate.mdb");  ///< the compacted file

/// The files of a compaction, by absolute path. If DayDate.mdb is a symbolic link, all three are in the
/// folder of its target: a rename in place would replace the link and abandon its target, which may be the
/// file that a sync tool synchronizes.
struct DayFiles {
    QString live;
    QString copy;
    QString target;
};

DayFiles FindDayFiles(const ProgramFolder& folder);

/// The absolute path of the target of a symbolic link, through any number of links, whether or not the target
/// exists; `path` itself if it is not a link.
QString FollowLinks(const QString& path);

}  // namespace tickwell::store

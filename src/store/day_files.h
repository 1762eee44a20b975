// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>

namespace tickwell {

// The files of the day database, all in the program's folder, which is the current one.
inline constexpr QLatin1StringView kLiveFile("DayDate.mdb");
inline constexpr QLatin1StringView kSafetyCopy("CopyDate.mdb");      ///< what it held before a compaction
inline constexpr QLatin1StringView kCompactionTarget("BUDate.mdb");  ///< what becomes of it

}  // namespace tickwell

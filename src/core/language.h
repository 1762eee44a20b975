// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

/// Language of clock and date, as it is stored. Any other number shows no clock and no date.
inline constexpr qint32 kLanguageJapanese = 0;
inline constexpr qint32 kLanguageEnglish = 1;
inline constexpr qint32 kLanguageOldJapanese = 2;

}  // namespace tickwell

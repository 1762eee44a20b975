// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

namespace tickwell::controls {

/// The letters for captions without a suitable one, in order of use.
inline constexpr QStringView kAllLetters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890";

/// The letter that Japanese programs customarily use for this caption; null for other captions.
QChar SuitingLetter(QStringView caption);

/// Whether a caption gets an access key: not if Enter or Esc already activates the button, or if the caption
/// is only a symbol.
bool TakesLetter(QStringView caption);

}  // namespace tickwell::controls

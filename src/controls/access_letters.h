// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

namespace tickwell::controls {

/// The letters for captions that have none of their own, in the order in which they are used.
inline constexpr QStringView kAllLetters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890";

/// The letter that suits a caption, as Japanese programs use it for the same word; null for other captions.
QChar SuitingLetter(QStringView caption);

/// Whether a caption gets an access key: not if Enter or Esc chooses it already, or if it is only a sign.
bool TakesLetter(QStringView caption);

}  // namespace tickwell::controls

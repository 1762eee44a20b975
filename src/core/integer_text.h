// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

namespace tickwell {

/// Converts a typed or stored text to an integer, the same everywhere: surrounding whitespace (including the
/// full-width space), "+" or "-", ASCII or full-width digits, a fraction rounded half to even. Anything else,
/// the empty text included, throws TypeMismatchError; a value outside the type's range throws OverflowError.
qint32 IntegerOf(QStringView text);
qint16 ShortIntegerOf(QStringView text);

/// Accepts "True" and "False" in any case; any other text must be a number as above, and means true unless it
/// is zero. Throws TypeMismatchError.
bool FlagOf(QStringView text);

/// The stored form of a flag.
QString FlagText(bool flag);

}  // namespace tickwell

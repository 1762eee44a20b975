// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

namespace tickwell {

/// The integer that a typed or stored text stands for, the same everywhere: blanks around it (also the
/// full-width one), "+" or "-", ASCII or full-width digits, a fraction rounded half to even. Anything else,
/// the empty text included, throws TypeMismatchError; a value outside the type's range throws OverflowError.
qint32 IntegerOf(QStringView text);
qint16 ShortIntegerOf(QStringView text);

/// "True" and "False" in any case, else a number as above, true where it is not zero. Throws
/// TypeMismatchError.
bool FlagOf(QStringView text);

/// How a flag is written.
QString FlagText(bool flag);

}  // namespace tickwell

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>

#include "store/jet/jet_definition.h"

namespace tickwell {

/// Whether JetInteger reads the type.
bool IsNumber(JetType type);

/// The number in a field of one of the number types. Throws JetError where it is not whole or not within 32
/// bits.
qint32 JetInteger(JetType type, const ByteView& field);

/// The date in a field of type Date, without its time of day: 0100-01-01 to 9999-12-31. Throws
/// JetDamageError.
QDate JetDate(const ByteView& field);

}  // namespace tickwell

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>

#include "store/jet/jet_definition.h"

namespace tickwell::store {

/// Whether JetInteger accepts the type.
bool IsNumber(JetType type);

/// The number in a field of a number type. Throws JetError if it is not an integer or exceeds 32 bits.
qint32 JetInteger(JetType type, const ByteView& field);

/// The date in a field of type Date, without the time of day: 0100-01-01 to 9999-12-31. Throws JetDamageError
/// for any other date.
QDate JetDate(const ByteView& field);

}  // namespace tickwell::store

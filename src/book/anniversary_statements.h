// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "days/anniversary.h"

namespace tickwell {

/// Statements that write to the anniversary book, for DayDatabase::Execute. A name is put between double
/// quotes as it is: one that holds a double quote itself makes a statement that the database refuses.
QString InsertStatement(const Anniversary& anniversary);

/// Changes every row that is equal to `from`, none where there is no such row. The new numbers are in quotes
/// as the new name is; the database takes them for the integers they are.
QString UpdateStatement(const Anniversary& from, const Anniversary& to);

/// Selects every row that is equal: those that the two others change.
QString SelectStatement(const Anniversary& anniversary);

/// Takes away every row that is equal.
QString DeleteStatement(const Anniversary& anniversary);

}  // namespace tickwell

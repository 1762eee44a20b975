// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "days/anniversary.h"

namespace tickwell {

/// Statements that write to the anniversary book, for DayDatabase::Execute. A name is put in double quotes
/// unchanged: the database refuses the statement of a name that contains a double quote.
QString InsertSql(const Anniversary& anniversary);

/// Changes every row equal to `from`, if there is any. The new numbers are quoted like the new name; the
/// database converts them to integers.
QString UpdateSql(const Anniversary& from, const Anniversary& to);

/// Selects every equal row: those that the two other statements change.
QString SelectSql(const Anniversary& anniversary);

/// Deletes every equal row.
QString DeleteSql(const Anniversary& anniversary);

}  // namespace tickwell
